#include <cstddef>

#include "controls/tree_view_messages.h"
#include "engine/path_tokens.h"
#include "explain/item_finders.h"
#include "explain/utf8.h"
#include "hostlink/remote_send.h"

namespace explain {

namespace {

static_assert(offsetof(TVHITTESTINFO, flags) == 8 && offsetof(TVHITTESTINFO, hItem) == 16 &&
              sizeof(TVHITTESTINFO) == 24);

HTREEITEM HitItem(const hostlink::HostWindow& tree, POINT point) {
    TVHITTESTINFO hit = {};
    hit.pt = ToClient(tree.window, point);
    hostlink::RemoteSend(tree, TVM_HITTEST, 0, hostlink::AsBlock(hit));
    return (hit.flags & (TVHT_ONITEM | TVHT_ONITEMBUTTON)) != 0 ? hit.hItem : nullptr;
}

// An item among its siblings, as a path finds it again.
struct Place {
    int number = 1;             // counted from 1
    std::string name;           // in the system code page
    bool isFoundByName = false; // no namesake comes before it
};

// None where the siblings before it could not be counted in time.
std::optional<Place> PlaceOf(const hostlink::HostWindow& tree, HTREEITEM item, bool wantsName,
                             const Patience& patience) {
    Place place;
    if (wantsName) {
        place.name = controls::ItemText(tree, item);
        place.isFoundByName = CanBeWritten(place.name) &&
                              place.name.find_first_of(engine::kTreeNamePath.separators) == std::string::npos;
    }
    while ((item = controls::RelatedItem(tree.window, TVGN_PREVIOUS, item)) != nullptr) {
        if (patience.IsOver()) {
            return std::nullopt;
        }
        ++place.number;
        place.isFoundByName =
            place.isFoundByName && !patience.IsOverForNames() && controls::ItemText(tree, item) != place.name;
    }
    return place;
}

// The adapter's walk along a path, backwards: the way down would expand what it passes.
Call StepsTo(const hostlink::HostWindow& tree, HTREEITEM item) {
    const Patience patience;
    std::string names;
    std::string numbers;
    bool hasNames = true;
    for (; item != nullptr; item = controls::RelatedItem(tree.window, TVGN_PARENT, item)) {
        const auto place = PlaceOf(tree, item, hasNames, patience);
        if (!place) {
            return {};
        }
        hasNames = hasNames && place->isFoundByName;
        names = place->name + (names.empty() ? "" : "|") + names;
        numbers = std::to_string(place->number) + (numbers.empty() ? "" : ".") + numbers;
    }
    if (hasNames && names.size() <= engine::kTreeNamePath.longest) {
        return OneStep("ItemByPath", AnsiToUtf8(names));
    }
    return numbers.size() <= engine::kTreeNumberPath.longest ? OneStep("ItemByNumPath", numbers) : Call();
}

} // namespace

FoundItem TreeItemAt(const hostlink::HostWindow& tree, POINT point) {
    const HTREEITEM item = HitItem(tree, point);
    if (item == nullptr) {
        return std::nullopt;
    }
    ItemAtPoint found;
    found.kind = "tree item";
    found.text = AnsiToUtf8(controls::ItemText(tree, item));
    found.steps = StepsTo(tree, item);
    found.rectangle = ToScreen(tree.window, controls::ItemTextRectangle(tree, item).value_or(RECT{}));
    return found;
}

} // namespace explain
