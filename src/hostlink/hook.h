// Owners of window hooks whose handles are published in the shared section.
#pragma once

#include <cstdint>

#include <windows.h>

namespace hostlink {

// A hook on one thread, installed for the lifetime of the object. A one-shot procedure removes it earlier,
// in the host's process; that does not free the installer from removing it: the published handle can be
// another script's, and removing a hook that is gone harms nobody.
class ScopedHook {
public:
    // `published` is the hook's field in the shared section. Thread id 0, which would make a hook on
    // every thread of the desktop, is refused.
    ScopedHook(volatile std::uint64_t& published, int type, HOOKPROC procedure, DWORD threadId) noexcept;
    ~ScopedHook();
    ScopedHook(const ScopedHook&) = delete;
    ScopedHook& operator=(const ScopedHook&) = delete;

    bool Installed() const noexcept { return m_handle != nullptr; }

private:
    volatile std::uint64_t& m_published;
    HHOOK m_handle;
};

inline HHOOK ToHook(std::uint64_t value) noexcept {
    return reinterpret_cast<HHOOK>(static_cast<std::uintptr_t>(value));
}

// Called by a one-shot procedure, in the host's process: removes the hook and clears its published handle.
// False if no hook was removed: the procedure would meet the same message again and must leave it alone.
bool RemoveFiredHook(volatile std::uint64_t& published) noexcept;

// Passes a hook call on.
LRESULT CallNext(volatile std::uint64_t& published, int code, WPARAM wParam, LPARAM lParam) noexcept;

// The message of a WH_CALLWNDPROC call if it is `awaited`, else null; also null for a negative code, for
// an identifier of 0 and for a window of another thread: where host and module are not of the same
// bitness, the system calls the procedure in the thread that installed the hook.
const CWPSTRUCT* AwaitedCall(int code, LPARAM lParam, UINT awaited) noexcept;

} // namespace hostlink
