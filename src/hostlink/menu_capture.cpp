#include "hostlink/menu_capture.h"

#include "hostlink/host_classes.h"
#include "hostlink/shared_section.h"

namespace hostlink {

namespace {

LRESULT CALLBACK MenuCaptureProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (const CWPSTRUCT* call = AwaitedCall(code, lParam, WM_CREATE)) {
        const WindowClass created(call->hwnd);
        if (IsMenuClass(created)) {
            shared.capturedMenuWindow = FromHandle(call->hwnd);
        } else if (IsHostBarClass(created)) {
            shared.capturedBarWindow = FromHandle(call->hwnd);
        }
    }
    return CallNext(shared.menuCaptureHook, code, wParam, lParam);
}

} // namespace

MenuCapture::InitialState::InitialState() noexcept {
    shared.capturedMenuWindow = 0;
    shared.capturedBarWindow = 0;
}

MenuCapture::MenuCapture(DWORD threadId) noexcept
    : m_hook(shared.menuCaptureHook, WH_CALLWNDPROC, MenuCaptureProcedure, threadId) {}

HWND MenuCapture::MenuWindow() const noexcept {
    return ToWindow(shared.capturedMenuWindow);
}

HWND MenuCapture::BarWindow() const noexcept {
    return ToWindow(shared.capturedBarWindow);
}

} // namespace hostlink
