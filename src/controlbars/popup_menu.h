// The windows in which the system shows popup menus.
#pragma once

#include <windows.h>

namespace controlbars {

// The menu that such a window shows.
HMENU MenuShownBy(HWND popupMenu) noexcept;

// The topmost visible popup menu of a GUI thread; null if it shows none.
HWND FindPopupMenu(DWORD threadId) noexcept;

bool IsPopupMenuShown(DWORD threadId, HMENU menu) noexcept;

// Whether the keyboard of a GUI thread works a menu.
bool IsInMenuMode(DWORD threadId) noexcept;

} // namespace controlbars
