// Watches a GUI thread of the host during one synchronisation.
#pragma once

#include "hostlink/hook.h"

namespace hostlink {

// Notices that "MSG_GH_SYNC" left the thread's queue and which popup dialog the thread opened. Hooks that
// cannot be installed are not reported: nothing is noticed then. The state is common to the whole
// desktop; one synchronisation runs at a time.
class SyncWatch {
public:
    explicit SyncWatch(DWORD threadId) noexcept;

    // Whether the host has taken the last sync message; true at the start, and after RequestPost().
    bool Consumed() const noexcept;
    void RequestPost() noexcept;
    // To be called before a sync message is posted.
    void ExpectSync() noexcept;

    // The popup dialog that the thread has created and not destroyed yet, or null.
    HWND Popup() const noexcept;
    void ForgetPopup() noexcept;

private:
    // The shared state at the start; a member, because it is set before the hooks are installed.
    struct InitialState {
        InitialState() noexcept;
    };
    InitialState m_initialState;
    ScopedHook m_createHook;
    ScopedHook m_queueHook;
};

} // namespace hostlink
