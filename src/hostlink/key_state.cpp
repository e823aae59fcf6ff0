#include "hostlink/key_state.h"

#include "hostlink/hook.h"
#include "hostlink/registered_messages.h"
#include "hostlink/shared_section.h"

namespace hostlink {

namespace {

LRESULT CALLBACK KeyStateProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const CWPSTRUCT* call = AwaitedCall(code, lParam, shared.setKeyStateMsg);
    if (call == nullptr) {
        return CallNext(shared.remoteHook, code, wParam, lParam);
    }
    RemoveFiredHook(shared.remoteHook);
    BYTE keys[256];
    if (GetKeyboardState(keys)) {
        keys[LOBYTE(call->wParam)] = HIBYTE(call->wParam);
        SetKeyboardState(keys);
    }
    return 0;
}

} // namespace

void SetHostKeyState(const HostWindow& target, BYTE virtualKey, BYTE state) noexcept {
    const UINT message = SetKeyStateMessage();
    const OneShotHook hook(shared.remoteHook, WH_CALLWNDPROC, KeyStateProcedure, target.threadId);
    if (hook.Installed()) {
        SendMessageA(target.window, message, static_cast<WPARAM>(state) << 8 | virtualKey, 0);
    }
}

} // namespace hostlink
