// Styles of a window and what follows from them, in the script's process and in the hooks.
#pragma once

#include <windows.h>

namespace hostlink {

// A popup window with a dialog's modal frame. False for a window that is gone.
bool IsPopupDialog(HWND window) noexcept;

// The window's style as unsigned 32 bits: GetWindowLongPtrA sign-extends it.
inline DWORD WindowStyle(HWND window) noexcept {
    return static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE));
}
inline DWORD WindowExtendedStyle(HWND window) noexcept {
    return static_cast<DWORD>(GetWindowLongPtrA(window, GWL_EXSTYLE));
}

// The process that owns a window; 0 for a window that is gone.
inline DWORD ProcessOf(HWND window) noexcept {
    DWORD processId = 0;
    GetWindowThreadProcessId(window, &processId);
    return processId;
}

} // namespace hostlink
