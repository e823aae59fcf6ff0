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
        // Whatever ran inside of this scope and left a context of its own active has returned: that one goes
        // too. Forced, the call is documented to fail for the context on top, and for no other.
        if (!DeactivateActCtx(DEACTIVATE_ACTCTX_FLAG_FORCE_EARLY_DEACTIVATION, m_cookie)) {
            DeactivateActCtx(0, m_cookie);
        }
    }
}

} // namespace automation
