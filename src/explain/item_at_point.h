// The item of a control below a point of the screen.
#pragma once

#include <optional>
#include <string>

#include <windows.h>

#include "explain/call.h"

namespace explain {

struct ItemAtPoint {
    std::string kind;    // "tree item", "list view cell", "list item", "tab", "tool bar button", "menu item",
                         // "grid cell", "option tree item"
    std::string text;    // what is written on it, UTF-8
    Call steps;          // to be put behind the call that reaches `window`; empty if scripts cannot reach it
    RECT rectangle = {}; // in screen coordinates, pixels
    // The control itself, but for what scripts reach otherwise: the combo box for its list, the window that
    // has the menu for a menu's items, the outermost owner of a popup bar for the bar's.
    HWND window = nullptr;
};

// None where the control has no items, where none lies there, and where its program does not answer. Reads
// only: nothing is selected, scrolled or expanded. Each step was checked against the control: it leads to
// this item and no other. An item of a list, a tab or a list view's first column gets the step that selects
// it, a cell of another column the one that reads it. Takes about a second at most; where the names of a
// large control could not all be read in that time, the item is told by its number.
std::optional<ItemAtPoint> ItemOf(HWND control, POINT screenPoint);

// The deepest window at the point, hidden and transparent ones left out, disabled ones not.
HWND WindowAtPoint(POINT screenPoint);

} // namespace explain
