#include "hostlink/menu_capture.h"

#include "hostlink/shared_section.h"
#include "hostlink/window_class.h"

namespace hostlink {

namespace {

LRESULT CALLBACK MenuCaptureProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (const CWPSTRUCT* call = AwaitedCall(code, lParam, WM_CREATE)) {
        const WindowClass created(call->hwnd);
        if (created.StartsWith("#32768")) {
            shared.capturedMenuWindow = FromHandle(call->hwnd);
        } else if (created.StartsWith("BCGToolBar") || created.StartsWith("BCGPToolBar")) {
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
