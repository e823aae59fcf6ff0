// Real mouse input, record by record. The user's mouse is blocked from the first record on, if scripts
// allow it.
#pragma once

#include <windows.h>

namespace input {

// Moves the cursor to a point and presses or releases a button there; a button code of none moves only.
// `clientRelative`: (x, y) is in client coordinates of the window, else in screen coordinates. Nothing is
// sent when the window that the point is relative to is gone: the point would lie anywhere.
void SendMouseEvent(HWND window, int button, bool press, int x, int y, bool clientRelative);

// The cursor alone, to a client point of the window or to a screen point.
void MoveCursorInWindow(HWND window, int x, int y);
void MoveCursorOnScreen(int x, int y);

} // namespace input
