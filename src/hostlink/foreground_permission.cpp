#include "hostlink/foreground_permission.h"

#include "hostlink/hook.h"
#include "hostlink/host_window.h"
#include "hostlink/registered_messages.h"
#include "hostlink/shared_section.h"

namespace hostlink {

namespace {

LRESULT CALLBACK ForegroundProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (AwaitedCall(code, lParam, AwaitedSendRemotelyMessage()) == nullptr) {
        return CallNext(shared.foregroundHook, code, wParam, lParam);
    }
    RemoveFiredHook(shared.foregroundHook);
    AllowSetForegroundWindow(ASFW_ANY);
    return 0;
}

} // namespace

void PermitForeground() noexcept {
    const HWND foreground = GetForegroundWindow();
    if (foreground == nullptr) {
        return;
    }
    const UINT message = SendRemotelyMessage();
    const ScopedHook hook(shared.foregroundHook, WH_CALLWNDPROC, ForegroundProcedure,
                          GetWindowThreadProcessId(foreground, nullptr));
    if (hook.Installed()) {
        // It need not be the host: any program of the desktop may hang, and the script must not hang with it.
        SendMessageTimeoutA(foreground, message, 0, 0, SMTO_ABORTIFHUNG, kHungMilliseconds, nullptr);
    }
}

} // namespace hostlink
