// Notices the menu or popup bar that the host opens during an action.
#pragma once

#include "hostlink/hook.h"

namespace hostlink {

// Watches the windows that the thread creates, for the lifetime of the object.
class MenuCapture {
public:
    explicit MenuCapture(DWORD threadId) noexcept;

    bool Installed() const noexcept { return m_hook.Installed(); }
    // The last window of class "#32768" that was created; null if none was.
    HWND MenuWindow() const noexcept;
    // The last window whose class begins with "BCGToolBar" or "BCGPToolBar"; null if none was created.
    HWND BarWindow() const noexcept;

private:
    // Nothing captured; a member, because it is set before the hook is installed.
    struct InitialState {
        InitialState() noexcept;
    };
    InitialState m_initialState;
    ScopedHook m_hook;
};

} // namespace hostlink
