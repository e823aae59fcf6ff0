#include "hostlink/hook.h"

#include "hostlink/module_instance.h"
#include "hostlink/shared_section.h"

namespace hostlink {

ScopedHook::ScopedHook(volatile std::uint64_t& published, int type, HOOKPROC procedure,
                       DWORD threadId) noexcept
    : m_published(published),
      m_handle(threadId == 0 ? nullptr : SetWindowsHookExA(type, procedure, ModuleInstance(), threadId)) {
    m_published = FromHandle(m_handle);
}

ScopedHook::~ScopedHook() {
    if (m_handle == nullptr) {
        return;
    }
    UnhookWindowsHookEx(m_handle);
    // Compared first: a call that re-entered during a wait, or another script, may have published its own.
    if (m_published == FromHandle(m_handle)) {
        m_published = 0;
    }
}

bool RemoveFiredHook(volatile std::uint64_t& published) noexcept {
    const std::uint64_t fired = published;
    const bool removed = UnhookWindowsHookEx(ToHook(fired)) != FALSE;
    // The signal of another module can come by before the installer publishes its hook.
    if (fired != 0 && published == fired) {
        published = 0;
    }
    return removed;
}

LRESULT CallNext(volatile std::uint64_t& published, int code, WPARAM wParam, LPARAM lParam) noexcept {
    return CallNextHookEx(ToHook(published), code, wParam, lParam);
}

const CWPSTRUCT* AwaitedCall(int code, LPARAM lParam, UINT awaited) noexcept {
    const auto* call = reinterpret_cast<const CWPSTRUCT*>(lParam);
    const bool isAwaited = code >= 0 && awaited != 0 && call->message == awaited;
    return isAwaited && GetWindowThreadProcessId(call->hwnd, nullptr) == GetCurrentThreadId() ? call
                                                                                              : nullptr;
}

} // namespace hostlink
