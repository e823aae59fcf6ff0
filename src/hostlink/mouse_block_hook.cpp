#include "hostlink/mouse_block_hook.h"

#include "hostlink/hook.h"
#include "hostlink/module_instance.h"
#include "hostlink/shared_section.h"

namespace hostlink {

namespace {

LRESULT CALLBACK MouseBlockProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (code >= 0 && shared.mouseBlocked != 0) {
        return 1;
    }
    return CallNext(shared.mouseBlockHook, code, wParam, lParam);
}

// False if another script, which got here at the same moment, has recorded its own.
bool Record(HHOOK hook) noexcept {
    auto* recorded = reinterpret_cast<volatile LONG64*>(&shared.mouseBlockHook);
    return InterlockedCompareExchange64(recorded, static_cast<LONG64>(FromHandle(hook)), 0) == 0;
}

} // namespace

bool InstallMouseBlockHook() noexcept {
    if (!PinModule()) {
        return false;
    }
    const HHOOK hook = SetWindowsHookExA(WH_MOUSE_LL, MouseBlockProcedure, ModuleInstance(), 0);
    if (hook == nullptr) {
        return false;
    }
    if (!Record(hook)) {
        UnhookWindowsHookEx(hook);
        return false;
    }
    return true;
}

void RemoveMouseBlockHook() noexcept {
    if (shared.mouseBlockHook != 0) {
        UnhookWindowsHookEx(ToHook(shared.mouseBlockHook));
    }
}

} // namespace hostlink
