// Real mouse input. The user's mouse is blocked from the first of it on, if scripts allow it.
#pragma once

#include <span>

#include <windows.h>

namespace input {

enum class ButtonAction { Press, Release };

// Moves the cursor to a client point of the window and performs the actions there, all in one piece: no
// other input comes between, and a script that is ended leaves nothing half done. A button code of none
// moves only. Where the window is gone, nothing is pressed; a release alone still goes out, without a
// move, as what was pressed is released.
void SendMouseEvents(HWND window, int button, std::span<const ButtonAction> actions, int x, int y);

// Releases buttons without a move, and without blocking the mouse; bit n is the button with code n.
void ReleaseButtons(unsigned buttons) noexcept;

// The cursor alone, to a client point of the window or to a screen point.
void MoveCursorInWindow(HWND window, int x, int y);
void MoveCursorOnScreen(int x, int y);

} // namespace input
