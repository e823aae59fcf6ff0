#include "controls/ghTreeControl.h"

#include "controlbars/context_menu.h"
#include "controls/ghTreeItem.h"
#include "controls/item_point.h"
#include "controls/tree_search.h"
#include "engine/activation.h"
#include "engine/path_tokens.h"

namespace {

// The tokens of a path that leads somewhere; nullopt for an empty or a too long one.
std::optional<controls::PathTokenList> Tokens(const std::string& path, std::string_view separators) {
    return path.empty() ? std::nullopt : engine::PathTokens(path, separators);
}

HTREEITEM FindByNumbers(const ghTreeControl& tree, const std::string& path) {
    const auto tokens = Tokens(path, engine::kTreeNumberSeparators);
    return tokens ? controls::FindByNumbers(tree.Window(), *tokens) : nullptr;
}

HTREEITEM FindByNames(const ghTreeControl& tree, const std::string& path) {
    const auto tokens = Tokens(path, engine::kTreeNameSeparators);
    return tokens ? controls::FindByNames(tree.Host(), *tokens) : nullptr;
}

std::unique_ptr<ghTreeItem> MakeFound(const ghTreeControl& tree, HTREEITEM item) {
    return item == nullptr ? nullptr : tree.MakeItem(item);
}

template <class Find>
bool SelectFound(const ghTreeControl& tree, Find find) {
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
    return MakeFound(*this, FindByNumbers(*this, path));
}

std::unique_ptr<ghTreeItem> ghTreeControl::ItemByNum(int number) const {
    return MakeFound(*this, controls::FindByRunningNumber(Window(), number));
}

std::unique_ptr<ghTreeItem> ghTreeControl::ItemByPath(const std::string& path) const {
    return MakeFound(*this, FindByNames(*this, path));
}

std::unique_ptr<ghTreeItem> ghTreeControl::SelectedItem() const {
    return MakeFound(*this, controls::RelatedItem(Window(), TVGN_CARET));
}

bool ghTreeControl::SelectItem(const std::string& path) {
    return path.size() <= engine::kLongestPath &&
           SelectFound(*this, [&] { return FindByNumbers(*this, path); });
}

bool ghTreeControl::SelectItemByNum(int number) {
    return SelectFound(*this, [&] { return controls::FindByRunningNumber(Window(), number); });
}

bool ghTreeControl::SelectItemByPath(const std::string& path) {
    return path.size() <= engine::kLongestPath &&
           SelectFound(*this, [&] { return FindByNames(*this, path); });
}

std::unique_ptr<ghControlBar> ghTreeControl::ContextMenu(bool selected) {
    const auto item = selected ? SelectedItem() : nullptr;
    // An item without a rectangle counts as being at the origin, unlike for the item's own menu.
    const POINT point = item ? item->TextCentre().value_or(POINT{}) : PointBelowItems(Window());
    return controlbars::OpenContextMenu(*this, point.x, point.y);
}
