#include "hostlink/key_state.h"

#include "hostlink/hook.h"
#include "hostlink/registered_messages.h"
#include "hostlink/shared_section.h"

namespace hostlink {

namespace {

LRESULT CALLBACK KeyStateProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    const CWPSTRUCT* call = AwaitedCall(code, lParam, AwaitedSetKeyStateMessage());
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

WPARAM PackKeyState(BYTE virtualKey, BYTE state) noexcept {
    return static_cast<WPARAM>(state) << 8 | virtualKey;
}

template <class Send>
void WithHook(const HostWindow& target, Send send) noexcept {
    const UINT message = SetKeyStateMessage();
    const ScopedHook hook(shared.remoteHook, WH_CALLWNDPROC, KeyStateProcedure, target.threadId);
    if (hook.Installed()) {
        send(message);
    }
}

} // namespace

void SetHostKeyState(const HostWindow& target, BYTE virtualKey, BYTE state) noexcept {
    WithHook(target,
             [&](UINT message) { SendMessageA(target.window, message, PackKeyState(virtualKey, state), 0); });
}

void TrySetHostKeyState(const HostWindow& target, BYTE virtualKey, BYTE state) noexcept {
    WithHook(target, [&](UINT message) {
        SendMessageTimeoutA(target.window, message, PackKeyState(virtualKey, state), 0, SMTO_ABORTIFHUNG,
                            kHungMilliseconds, nullptr);
    });
}

} // namespace hostlink
