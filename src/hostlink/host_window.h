// A window of the host with the GUI thread that owns it.
#pragma once

#include <windows.h>

namespace hostlink {

struct HostWindow {
    HWND window = nullptr;
    DWORD threadId = 0; // 0 where the window is null or gone
};

} // namespace hostlink
