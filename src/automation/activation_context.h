// The activation context that the module was loaded in.
#pragma once

#include <windows.h>

namespace automation {

// Keeps the context that is current at load time, with a reference.
void CaptureActivationContext() noexcept;

// Runs the standard IDispatch members in the captured context, for the lifetime of the object.
class ActivationScope {
public:
    ActivationScope() noexcept;
    ~ActivationScope();
    ActivationScope(const ActivationScope&) = delete;
    ActivationScope& operator=(const ActivationScope&) = delete;

private:
    ULONG_PTR m_cookie = 0;
    bool m_active;
};

} // namespace automation
