// The mouse operations of a window. Coordinates are client coordinates of the window in pixels. Input goes
// out whatever the state of the window; nothing is reported. Each operation ends with the window's
// synchronisation.
#pragma once

#include "engine/ghBaseWindow.h"
#include "input/mouse_button.h"

namespace input {

// Modifier bits; other bits go out unchanged in the wParam of posted messages.
inline constexpr int kShiftKey = 0x04;
inline constexpr int kControlKey = 0x08;
inline constexpr int kAltKey = 0x20;
inline constexpr int kRealClick = 0x80; // Click alone: as real input, whatever the window's setting

// `forceReal`: as real input, whatever the window's setting.
void Click(const ghBaseWindow& window, int button, int x, int y, int keys, bool forceReal = false);
void DoubleClick(const ghBaseWindow& window, int button, int x, int y, int keys);
void MouseDown(const ghBaseWindow& window, int button, int x, int y, int keys);
void MouseUp(const ghBaseWindow& window, int button, int x, int y, int keys);
// Deliberately seen by the host as a drag with the left button held.
void MouseMove(const ghBaseWindow& window, int x, int y, int keys);

// Moves the real cursor out of the way: to the window's client origin, or to the screen's top-left corner
// with the window activated after. Does not synchronise by itself.
void ParkCursor(const ghBaseWindow& window, bool toWindow);

} // namespace input
