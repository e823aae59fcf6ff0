// Stand-in for the library syncutil: a wait that keeps the calling thread's messages flowing.
#pragma once

#include <windows.h>

// Waits until one of `count` handles is signalled or `milliseconds` have passed (INFINITE: no limit), and
// answers as WaitForMultipleObjects does. Without handles it lasts its full time and answers WAIT_TIMEOUT.
// With `pumpMessages` it dispatches the calling thread's messages meanwhile, so calls into the caller's
// apartment can re-enter; at most 63 handles then. WM_QUIT is put back for the caller's own message loop
// and ends the dispatching, not the wait, except for an endless wait on no handles, which ends at once.
// `reserved` must be null and is not looked at.
DWORD SafeWaitWithMessageLoop(DWORD count, const HANDLE* handles, DWORD milliseconds, BOOL pumpMessages,
                              void* reserved);
