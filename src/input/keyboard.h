// Keys, posted to the window that has the focus in the host's GUI thread.
#pragma once

#include <string>

#include "engine/ghBaseWindow.h"

namespace input {

// Posts a key-down and a key-up, then dispatches the calling thread's messages for `delay` milliseconds.
// Does not synchronise.
void PressKey(const ghBaseWindow& window, int virtualKey, int delay);

// Posts Alt down and up, which takes the keyboard to the menu bar. Does not synchronise.
void PressMenuKey(const ghBaseWindow& window);

// Selects in the menu by the access characters of its items, or by 1-based item numbers between any of
// ".-:/\". `delay` is the pause after each key in milliseconds. An empty path does nothing.
// Nothing more is pressed when the window goes.
void MenuChars(const ghBaseWindow& window, const std::string& path, int delay);
void MenuIndex(const ghBaseWindow& window, const std::string& path, int delay);

} // namespace input
