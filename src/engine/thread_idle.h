// Whether a thread, of whatever process, is waiting for its user.
#pragma once

#include "engine/performance_data.h"

#include <windows.h>

namespace engine {

// Asks the system's performance data, which takes milliseconds. CannotTell for thread id 0, for a thread that
// is gone, for the calling thread itself, which can never be seen waiting, and when the query fails; a failed
// query is reported on standard output.
ThreadIdleState QueryThreadIdle(DWORD threadId);

// Lets go of the performance data, which the first query opens: its providers stay loaded in between, as
// loading them takes far longer than a query. The next query opens them again.
void ReleasePerformanceData() noexcept;

} // namespace engine
