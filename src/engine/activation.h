// Bringing a window to the foreground, and the waits before input goes to it.
#pragma once

#include "engine/ghBaseWindow.h"

namespace engine {

// Brings the window to the foreground, gives it the focus and synchronises. A modal dialog that blocks
// the window is activated instead. True if the system gave it the foreground.
bool Activate(const ghBaseWindow& window);

// Whether the window, or the window that it is a child of, is the active one of its thread.
bool IsActive(const ghBaseWindow& window) noexcept;

// Waits before input: up to 1 second until the window is active, then up to its enabled timeout until it
// is enabled. Input goes out in any case, so nothing is returned.
void WaitUntilReady(const ghBaseWindow& window);

// The second of these waits alone.
void WaitUntilEnabled(const ghBaseWindow& window);

} // namespace engine
