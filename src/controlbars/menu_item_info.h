// What a menu tells about one of its items.
#pragma once

#include <optional>
#include <string>

#include <windows.h>

namespace controlbars {

struct MenuItemInfo {
    UINT type = 0;
    UINT state = 0;
    UINT command = 0;
    HMENU submenu = nullptr;
    std::string text; // at most 1023 bytes of it
};

// `position` is 0-based. None where the menu is gone or has no such item.
std::optional<MenuItemInfo> ReadMenuItem(HMENU menu, int position);

} // namespace controlbars
