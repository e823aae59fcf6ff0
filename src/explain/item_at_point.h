// The item of a control below a point of the screen.
#pragma once

#include <optional>
#include <string>

#include <windows.h>

#include "explain/call.h"

namespace explain {

struct ItemAtPoint {
    std::string kind; // "tree item", "list view cell", "list item", "tab", "tool bar button", "menu item",
                      // "grid cell", "option tree item"
    std::string text; // what is written on it, UTF-8
    Call steps;       // to be put behind the call that reaches the control; empty if scripts cannot reach it
    RECT rectangle = {}; // in screen coordinates, pixels
};

// None where the control has no items, where none lies there, and where its program does not answer.
std::optional<ItemAtPoint> ItemOf(HWND control, POINT screenPoint);

// The deepest window at the point, hidden and transparent ones left out, disabled ones not.
HWND WindowAtPoint(POINT screenPoint);

} // namespace explain
