// Staying in step with the host after an action.
#pragma once

#include "engine/ghBaseWindow.h"

namespace engine {

// Waits until the window's GUI thread has taken a marker message off its queue and is idle again; a popup
// dialog that the action opened is waited for until it is the active one. Takes 100 ms at least and 60 s
// at most, in which the calling thread's messages are dispatched. Without effect when the window's
// Synchronization() is off.
void Synchronise(const ghBaseWindow& window);

// The top-level window (or the outermost owner) above a window; the window itself if nothing is above it.
HWND TopLevelAncestor(HWND window) noexcept;

} // namespace engine
