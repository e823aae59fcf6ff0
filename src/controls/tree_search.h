// Finding an item of a tree view, in its own thread where that is the shorter way (hostlink/walk.h).
#pragma once

#include <cstdint>
#include <string_view>

#include "controls/tree_view_messages.h"

namespace controls {

// The items that a path leads to; null if there is no such item. Items that are descended from are expanded.
// Without a token the first root item.

// Each token (engine::kTreeNumberPath) is the 1-based number of an item among its siblings; what is not a
// number above 0 means the first one, on purpose.
HTREEITEM FindByNumbers(const hostlink::HostWindow& tree, std::string_view path);

// Each token (engine::kTreeNamePath) is the whole text of an item, case-sensitive; the first of several
// namesakes counts.
HTREEITEM FindByNames(const hostlink::HostWindow& tree, std::string_view path);

// The item with that number, counted from 1 from top to bottom over all branches. Every item passed on the
// way is expanded, on purpose: this fills lazily filled branches.
HTREEITEM FindByRunningNumber(const hostlink::HostWindow& tree, int number);

// The walks, each a step and where it stands. The item at which one ends is the one found, 0 for none.

struct TreePathPosition {
    std::uint64_t item = 0;
    std::uint32_t token = 0;  // where in the path the item's token is looked for
    std::uint32_t passed = 0; // siblings before the item
    std::uint32_t hasBegun = 0;
    std::uint32_t padding = 0;
};
bool StepByNumbers(const hostlink::HostWindow& tree, std::string_view path, TreePathPosition& position);
bool StepByNames(const hostlink::HostWindow& tree, std::string_view path, TreePathPosition& position);

// Without recursion: a branch may be deeper than the stack.
struct RunningNumberPosition {
    static constexpr std::uint32_t kKept = 500;

    std::uint64_t item = 0; // 0 on the way up from the last item of a branch
    std::int32_t left = 0;  // as many items further, this one counted
    std::uint32_t hasBegun = 0;
    // The items whose siblings are still to be walked: the first ones are kept, of those below only the last.
    std::uint64_t lastAbove = 0;
    std::uint32_t depth = 0;
    std::uint32_t padding = 0;
    std::uint64_t above[kKept] = {};
};
bool StepByRunningNumber(const hostlink::HostWindow& tree, std::string_view, RunningNumberPosition& position);

} // namespace controls
