// A window of the host with the GUI thread that owns it.
#pragma once

#include <windows.h>

namespace hostlink {

// The system's own idea of a program that hangs: one that has fetched no message for so long. Steps that an
// action can do without are given up then.
inline constexpr UINT kHungMilliseconds = 5000;

struct HostWindow {
    HWND window = nullptr;
    DWORD threadId = 0; // 0 where the window is null or gone
};

inline bool IsOfThisThread(const HostWindow& host) noexcept {
    return host.threadId == GetCurrentThreadId();
}

} // namespace hostlink
