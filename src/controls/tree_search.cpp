#include "controls/tree_search.h"

#include "engine/path_tokens.h"

namespace controls {

namespace {

// Follows the tokens down from the first root item. `choose` finds the item that a token means among an
// item and its following siblings.
template <class Choose>
HTREEITEM Descend(HWND tree, const PathTokenList& tokens, Choose choose) {
    HTREEITEM item = RelatedItem(tree, TVGN_ROOT);
    for (auto token = tokens.begin(); token != tokens.end() && item != nullptr; ++token) {
        if (token != tokens.begin()) {
            ExpandItem(tree, item, TVE_EXPAND);
            item = RelatedItem(tree, TVGN_CHILD, item);
        }
        item = choose(*token, item);
    }
    return item;
}

} // namespace

HTREEITEM FindByNumbers(HWND tree, const PathTokenList& tokens) noexcept {
    return Descend(tree, tokens, [&](const std::string& token, HTREEITEM item) {
        for (int left = engine::PathNumber(token); left > 1 && item != nullptr; --left) {
            item = RelatedItem(tree, TVGN_NEXT, item);
        }
        return item;
    });
}

HTREEITEM FindByNames(const hostlink::HostWindow& tree, const PathTokenList& tokens) {
    return Descend(tree.window, tokens, [&](const std::string& token, HTREEITEM item) {
        while (item != nullptr && ItemText(tree, item) != token) {
            item = RelatedItem(tree.window, TVGN_NEXT, item);
        }
        return item;
    });
}

// Without recursion: a branch may be deeper than the stack. An item that goes during the walk has neither
// children nor siblings, so the walk ends or goes on with what is above it.
HTREEITEM FindByRunningNumber(HWND tree, int number) {
    std::vector<HTREEITEM> above; // the items whose siblings are still to be walked
    HTREEITEM item = number < 1 ? nullptr : RelatedItem(tree, TVGN_ROOT);
    for (int count = 1; item != nullptr && count < number; ++count) {
        ExpandItem(tree, item, TVE_EXPAND);
        above.push_back(item);
        item = RelatedItem(tree, TVGN_CHILD, item);
        while (item == nullptr && !above.empty()) {
            item = RelatedItem(tree, TVGN_NEXT, above.back());
            above.pop_back();
        }
    }
    return item;
}

} // namespace controls
