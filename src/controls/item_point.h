// The points of an item, and of the place without items, that a mouse click goes to. Client coordinates.
#pragma once

#include <windows.h>

namespace controls {

// Where a click selects an item.
inline POINT ClickPoint(const RECT& item) noexcept {
    return {item.left + 1, item.top + 1};
}

// Where a right click opens an item's menu.
inline POINT Centre(const RECT& item) noexcept {
    return {(item.left + item.right) / 2, (item.top + item.bottom) / 2};
}

// Where a right click opens the control's own menu: at the bottom left, below the items.
inline POINT BackgroundPoint(HWND control) noexcept {
    RECT client = {};
    GetClientRect(control, &client);
    return {1, client.bottom - 1};
}

} // namespace controls
