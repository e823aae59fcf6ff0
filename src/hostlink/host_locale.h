// The locale of the host's GUI thread.
#pragma once

#include "hostlink/host_window.h"

namespace hostlink {

// Gives the calling thread the locale of the thread of the host's main window, so that text that depends
// on a locale is handled alike on both sides. Takes at least 10 ms, in which messages are pumped; the locale
// is left as it is where the host does not answer in 5 seconds. The hook stays in place until the next call.
void AdoptHostLocale(const HostWindow& mainWindow) noexcept;

// Takes the hook that this thread has left in the thread of `host` away for the lifetime of the object: each
// message sent in that thread passes it. Another script's hook stays.
class ScopedLocaleHookRemoval {
public:
    explicit ScopedLocaleHookRemoval(const HostWindow& host) noexcept;
    ~ScopedLocaleHookRemoval();
    ScopedLocaleHookRemoval(const ScopedLocaleHookRemoval&) = delete;
    ScopedLocaleHookRemoval& operator=(const ScopedLocaleHookRemoval&) = delete;

private:
    DWORD m_threadId = 0; // 0 if no hook was removed
};

} // namespace hostlink
