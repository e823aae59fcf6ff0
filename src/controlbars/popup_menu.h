// The windows in which menus and popup bars are shown.
#pragma once

#include <memory>

#include "controlbars/ghControlBar.h"

namespace controlbars {

// The menu that a window of the system's popup menus shows.
HMENU MenuShownBy(HWND popupMenu) noexcept;

// The topmost visible popup menu of a GUI thread; null if it shows none.
HWND FindPopupMenu(DWORD threadId) noexcept;

// Whether a popup menu of the thread shows it, and whether the topmost one, which alone has the keyboard,
// does.
bool IsPopupMenuShown(DWORD threadId, HMENU menu) noexcept;
bool IsTopmostPopupMenu(DWORD threadId, HMENU menu) noexcept;

// Whether the keyboard of a GUI thread works a menu.
bool IsInMenuMode(DWORD threadId) noexcept;

// The window of the popup menu that the window's GUI thread shows, else the bar in a popup of the host's own
// kind that belongs to one of the top-level windows above the window, the outermost first; null if neither
// is shown.
HWND FindCurrentPopup(const ghBaseWindow& window);

// What such a window, or a bar, shows; a menu is one of `owner`, and not valid if it is gone. Null for a window
// that is gone.
std::unique_ptr<ghControlBar> MakeShownBar(const ghBaseWindow& owner, HWND popup);

} // namespace controlbars
