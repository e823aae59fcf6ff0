#include "controls/ghTreeControl.h"

#include <functional>
#include <string_view>

#include "controlbars/context_menu.h"
#include "controls/ghTreeItem.h"
#include "controls/item_point.h"
#include "controls/tree_search.h"
#include "engine/activation.h"
#include "engine/path_tokens.h"

namespace {

// Finds the item of a path; an empty path leads nowhere. Null for a path that is too long, with which
// nothing is done at all.
using FindItem = std::function<HTREEITEM()>;

FindItem Finder(const ghTreeControl& tree, const std::string& path, const engine::PathKind& kind,
                HTREEITEM (*find)(const hostlink::HostWindow& tree, std::string_view path)) {
    return path.size() > kind.longest ? FindItem() : [&tree, path, find] {
        return path.empty() ? nullptr : find(tree.Host(), path);
    };
}

FindItem FinderByNumbers(const ghTreeControl& tree, const std::string& path) {
    return Finder(tree, path, engine::kTreeNumberPath, controls::FindByNumbers);
}

FindItem FinderByNames(const ghTreeControl& tree, const std::string& path) {
    return Finder(tree, path, engine::kTreeNamePath, controls::FindByNames);
}

std::unique_ptr<ghTreeItem> MakeFound(const ghTreeControl& tree, HTREEITEM item) {
    return item == nullptr ? nullptr : tree.MakeItem(item);
}

std::unique_ptr<ghTreeItem> MakeFound(const ghTreeControl& tree, const FindItem& find) {
    return find ? MakeFound(tree, find()) : nullptr;
}

bool SelectFound(const ghTreeControl& tree, const FindItem& find) {
    if (!find) {
        return false;
    }
    engine::Activate(tree);
    engine::WaitUntilReady(tree);
    const HTREEITEM item = find();
    if (item == nullptr) {
        return false;
    }
    ghTreeItem(tree, item).Select();
    return true;
}

// Where the tree's own menu opens: below the last item, which is scrolled into view.
POINT PointBelowItems(HWND tree) noexcept {
    HTREEITEM last = nullptr;
    HTREEITEM item = controls::RelatedItem(tree, TVGN_FIRSTVISIBLE);
    while (item != nullptr) {
        last = item;
        item = controls::RelatedItem(tree, TVGN_NEXTVISIBLE, item);
    }
    if (last != nullptr) {
        controls::EnsureItemVisible(tree, last);
    }
    return controls::BackgroundPoint(tree);
}

} // namespace

std::unique_ptr<ghTreeItem> ghTreeControl::MakeItem(HTREEITEM item) const {
    return std::make_unique<ghTreeItem>(*this, item);
}

std::unique_ptr<ghTreeItem> ghTreeControl::ItemByNumPath(const std::string& path) const {
    return MakeFound(*this, FinderByNumbers(*this, path));
}

std::unique_ptr<ghTreeItem> ghTreeControl::ItemByNum(int number) const {
    return MakeFound(*this, controls::FindByRunningNumber(Host(), number));
}

std::unique_ptr<ghTreeItem> ghTreeControl::ItemByPath(const std::string& path) const {
    return MakeFound(*this, FinderByNames(*this, path));
}

std::unique_ptr<ghTreeItem> ghTreeControl::SelectedItem() const {
    return MakeFound(*this, controls::RelatedItem(Window(), TVGN_CARET));
}

bool ghTreeControl::SelectItem(const std::string& path) const {
    return SelectFound(*this, FinderByNumbers(*this, path));
}

bool ghTreeControl::SelectItemByNum(int number) const {
    return SelectFound(*this, [&] { return controls::FindByRunningNumber(Host(), number); });
}

bool ghTreeControl::SelectItemByPath(const std::string& path) const {
    return SelectFound(*this, FinderByNames(*this, path));
}

std::unique_ptr<ghControlBar> ghTreeControl::ContextMenu(bool selected) const {
    const auto item = selected ? SelectedItem() : nullptr;
    // An item without a rectangle counts as being at the origin, unlike for the item's own menu.
    const POINT point = item ? item->TextCentre().value_or(POINT{}) : PointBelowItems(Window());
    return controlbars::OpenContextMenu(*this, point.x, point.y);
}
