#include "controls/tree_search.h"

#include "engine/path_tokens.h"
#include "hostlink/walk.h"

namespace controls {

namespace {

// Steps that carry no memory.
constexpr int kNearNumbers = 6;        // a message each
constexpr int kNearRunningNumbers = 2; // two messages each, but the first

HTREEITEM ToItem(std::uint64_t item) noexcept {
    return reinterpret_cast<HTREEITEM>(static_cast<std::uintptr_t>(item));
}

std::uint64_t FromItem(HTREEITEM item) noexcept {
    return reinterpret_cast<std::uintptr_t>(item);
}

std::uint64_t Related(HWND tree, UINT relation, std::uint64_t item = 0) noexcept {
    return FromItem(RelatedItem(tree, relation, ToItem(item)));
}

std::uint64_t FirstBelow(HWND tree, std::uint64_t item) noexcept {
    ExpandItem(tree, ToItem(item), TVE_EXPAND);
    return Related(tree, TVGN_CHILD, item);
}

// A step down a path. `isMeant(token)` tells whether the item is the one that its token means.
template <class IsMeant>
bool StepAlong(const hostlink::HostWindow& tree, std::string_view path, const engine::PathKind& kind,
               TreePathPosition& position, IsMeant isMeant) {
    std::size_t behind = position.token;
    const std::string_view token = engine::NextPathToken(path, kind, behind);
    if (position.hasBegun == 0) {
        position.hasBegun = 1;
        position.item = Related(tree.window, TVGN_ROOT);
    } else if (!isMeant(token)) {
        position.item = Related(tree.window, TVGN_NEXT, position.item);
        ++position.passed;
    } else {
        if (!engine::HasPathToken(path, kind, behind)) {
            return false;
        }
        position.item = FirstBelow(tree.window, position.item);
        position.passed = 0;
        position.token = static_cast<std::uint32_t>(behind);
    }
    return position.item != 0 && !token.empty();
}

// The innermost of the items above, which is left.
std::uint64_t TakeAbove(HWND tree, RunningNumberPosition& position) noexcept {
    --position.depth;
    if (position.depth < position.kKept) {
        return position.above[position.depth];
    }
    const std::uint64_t innermost = position.lastAbove;
    if (position.depth > position.kKept) {
        position.lastAbove = Related(tree, TVGN_PARENT, innermost);
    }
    return innermost;
}

void PutAbove(RunningNumberPosition& position) noexcept {
    if (position.depth < position.kKept) {
        position.above[position.depth] = position.item;
    } else {
        position.lastAbove = position.item;
    }
    ++position.depth;
}

} // namespace

bool StepByNumbers(const hostlink::HostWindow& tree, std::string_view path, TreePathPosition& position) {
    return StepAlong(tree, path, engine::kTreeNumberPath, position, [&](std::string_view token) {
        return std::int64_t{position.passed} + 1 >= engine::PathNumber(token);
    });
}

bool StepByNames(const hostlink::HostWindow& tree, std::string_view path, TreePathPosition& position) {
    return StepAlong(tree, path, engine::kTreeNamePath, position,
                     [&](std::string_view token) { return ItemText(tree, ToItem(position.item)) == token; });
}

// An item that goes during the walk has neither children nor siblings, so the walk ends or goes on with what
// is above it.
bool StepByRunningNumber(const hostlink::HostWindow& tree, std::string_view,
                         RunningNumberPosition& position) {
    if (position.hasBegun == 0) {
        position.hasBegun = 1;
        position.item = position.left < 1 ? 0 : Related(tree.window, TVGN_ROOT);
    } else {
        if (position.item != 0) {
            PutAbove(position);
            position.item = FirstBelow(tree.window, position.item);
        } else {
            position.item = Related(tree.window, TVGN_NEXT, TakeAbove(tree.window, position));
        }
        position.left -= position.item != 0 && position.left > 0 ? 1 : 0;
    }
    return position.item != 0 ? position.left > 1 : position.depth > 0;
}

HTREEITEM FindByNumbers(const hostlink::HostWindow& tree, std::string_view path) {
    TreePathPosition position;
    hostlink::Walk<TreePathPosition, StepByNumbers>(tree, path, position, kNearNumbers);
    return ToItem(position.item);
}

HTREEITEM FindByNames(const hostlink::HostWindow& tree, std::string_view path) {
    TreePathPosition position;
    hostlink::Walk<TreePathPosition, StepByNames>(tree, path, position);
    return ToItem(position.item);
}

HTREEITEM FindByRunningNumber(const hostlink::HostWindow& tree, int number) {
    RunningNumberPosition position;
    position.left = number;
    hostlink::Walk<RunningNumberPosition, StepByRunningNumber>(tree, {}, position, kNearRunningNumbers);
    return ToItem(position.item);
}

} // namespace controls
