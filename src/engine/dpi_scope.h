// The DPI awareness in which coordinates are meant. The system converts what a thread is told, and tells, of
// another program's windows to the thread's own pixels; in the window's awareness they are the program's.
#pragma once

#include <windows.h>

namespace engine {

// That of a window, which keeps it as long as it lives. Null for a window that is gone, and on a system
// (before Windows 10 1607) that knows one awareness for each process only.
DPI_AWARENESS_CONTEXT DpiAwarenessOf(HWND window) noexcept;

// Gives the calling thread an awareness for its lifetime; null leaves the thread as it is. Scopes nest.
class DpiScope {
public:
    explicit DpiScope(DPI_AWARENESS_CONTEXT awareness) noexcept;
    ~DpiScope();
    DpiScope(const DpiScope&) = delete;
    DpiScope& operator=(const DpiScope&) = delete;

private:
    DPI_AWARENESS_CONTEXT m_previous; // null where nothing was changed
};

} // namespace engine
