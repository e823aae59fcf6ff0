#include "controlbars/menu_item_info.h"

namespace controlbars {

namespace {

static_assert(sizeof(MENUITEMINFOA) == 80);
static_assert((MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_STRING | MIIM_FTYPE) == 0x147);

} // namespace

std::optional<MenuItemInfo> ReadMenuItem(HMENU menu, int position) {
    char text[1024]; // not filled with zeros: menus with hundreds of items are searched
    text[0] = '\0';
    MENUITEMINFOA info = {};
    info.cbSize = sizeof info;
    info.fMask = MIIM_STATE | MIIM_ID | MIIM_SUBMENU | MIIM_STRING | MIIM_FTYPE;
    info.dwTypeData = text;
    info.cch = sizeof text;
    if (!GetMenuItemInfoA(menu, static_cast<UINT>(position), TRUE, &info)) {
        return std::nullopt;
    }
    text[sizeof text - 1] = '\0';
    return MenuItemInfo{info.fType, info.fState, info.wID, info.hSubMenu, text};
}

} // namespace controlbars
