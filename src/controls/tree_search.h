// Finding an item of a tree view.
#pragma once

#include <string>
#include <vector>

#include "controls/tree_view_messages.h"

namespace controls {

using PathTokenList = std::vector<std::string>;

// Each token is the 1-based number of an item among its siblings; what is not a number above 0 means the
// first one, on purpose. Items that are descended from are expanded. Without a token the first root item.
// Null if there is no such item.
HTREEITEM FindByNumbers(HWND tree, const PathTokenList& tokens) noexcept;

// Each token is the whole text of an item, case-sensitive; the first of several namesakes counts.
HTREEITEM FindByNames(const hostlink::HostWindow& tree, const PathTokenList& tokens);

// The item with that number, counted from 1 from top to bottom over all branches. Every item passed on the
// way is expanded, on purpose: this fills lazily filled branches.
HTREEITEM FindByRunningNumber(HWND tree, int number);

} // namespace controls
