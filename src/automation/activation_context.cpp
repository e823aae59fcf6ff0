#include "automation/activation_context.h"

namespace automation {

namespace {
HANDLE captured = nullptr; // null is the process's default context
}

void CaptureActivationContext() noexcept {
    HANDLE current = nullptr;
    if (GetCurrentActCtx(&current)) {
        captured = current;
    }
}

ActivationScope::ActivationScope() noexcept : m_active(ActivateActCtx(captured, &m_cookie) != FALSE) {}

ActivationScope::~ActivationScope() {
    if (m_active) {
        DeactivateActCtx(0, m_cookie);
    }
}

} // namespace automation
