// Watches a GUI thread of the host during one synchronisation.
#pragma once

#include <cstdint>
#include <optional>

#include "hostlink/hook.h"

namespace hostlink {

// Notices that "MSG_GH_SYNC" left the thread's queue and which popup dialog the thread opened. Hooks that
// cannot be installed are not reported: nothing is noticed then. The state is common to the whole
// desktop; one synchronisation runs at a time, but a call that a wait lets in can synchronise too: such a
// watch leaves the one around it a state in which that posts its marker anew and knows its popup again.
class SyncWatch {
public:
    explicit SyncWatch(DWORD threadId) noexcept;
    ~SyncWatch();
    SyncWatch(const SyncWatch&) = delete;
    SyncWatch& operator=(const SyncWatch&) = delete;

    // Whether a sync message is to be posted: at the start, when the host has taken the last one, after
    // RequestPost(), and when a watch inside this one has come between.
    bool WantsPost() const noexcept;
    // Whether the host has taken the last sync message.
    bool Consumed() const noexcept;
    void RequestPost() noexcept;
    // To be called before a sync message is posted.
    void ExpectSync() noexcept;

    // The popup dialog that the thread has created and not destroyed yet, or null.
    HWND Popup() const noexcept;
    void ForgetPopup() noexcept;

private:
    // The state of the watch around this one, and the state at the start of this one; a member, because it
    // is set before the hooks are installed.
    struct State {
        State() noexcept;

        bool isNested;
        std::uint64_t popup;
        std::uint64_t createHook;
        std::uint64_t queueHook;
    };
    State m_around;
    int m_endedAtPost; // how many watches had ended when the last sync message was posted
    std::optional<ScopedHook> m_createHook;
    std::optional<ScopedHook> m_queueHook;
};

} // namespace hostlink
