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
    // Compared first: a call that re-entered during a wait may have published a hook of its own.
    if (m_handle != nullptr) {
        UnhookWindowsHookEx(m_handle);
        if (m_published == FromHandle(m_handle)) {
            m_published = 0;
        }
    }
}

OneShotHook::~OneShotHook() {
    if (m_published == 0) {
        m_handle = nullptr; // it has fired and is gone
    }
}

void RemoveFiredHook(volatile std::uint64_t& published) noexcept {
    UnhookWindowsHookEx(ToHook(published));
    published = 0;
}

LRESULT CallNext(volatile std::uint64_t& published, int code, WPARAM wParam, LPARAM lParam) noexcept {
    return CallNextHookEx(ToHook(published), code, wParam, lParam);
}

const CWPSTRUCT* AwaitedCall(int code, LPARAM lParam, UINT awaited) noexcept {
    const auto* call = reinterpret_cast<const CWPSTRUCT*>(lParam);
    return code >= 0 && awaited != 0 && call->message == awaited ? call : nullptr;
}

} // namespace hostlink
