// Staying in step with the host after an action.
#pragma once

#include "engine/ghBaseWindow.h"
#include "engine/performance_data.h"

namespace engine {

// What a synchronisation asks of the system, and how long it goes on at most.
struct SynchronisationLimits {
    int longestMilliseconds = 60000;
    ThreadIdleState (*queryIdle)(DWORD threadId) = nullptr; // null: the system's performance data
};

// Waits until the window's GUI thread has taken a marker message off its queue and is idle again; a popup
// dialog that the action opened is waited for until it is the active one. Takes 100 ms at least and 60 s
// at most, in which the calling thread's messages are dispatched. Without effect when the window's
// Synchronization() is off.
void Synchronise(const ghBaseWindow& window, const SynchronisationLimits& limits = {});

} // namespace engine
