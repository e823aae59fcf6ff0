// Owners of window hooks whose handles are published in the shared section.
#pragma once

#include <cstdint>

#include <windows.h>

namespace hostlink {

// A hook on one thread, installed for the lifetime of the object.
class ScopedHook {
public:
    // `published` is the hook's field in the shared section. Thread id 0, which would make a hook on
    // every thread of the desktop, is refused.
    ScopedHook(volatile std::uint64_t& published, int type, HOOKPROC procedure, DWORD threadId) noexcept;
    ~ScopedHook();
    ScopedHook(const ScopedHook&) = delete;
    ScopedHook& operator=(const ScopedHook&) = delete;

    bool Installed() const noexcept { return m_handle != nullptr; }

protected:
    volatile std::uint64_t& m_published;
    HHOOK m_handle;
};

// A hook whose procedure removes it on the first message that it waits for. The installer removes it
// when that message never came.
class OneShotHook : public ScopedHook {
public:
    using ScopedHook::ScopedHook;
    ~OneShotHook();
};

inline HHOOK ToHook(std::uint64_t value) noexcept {
    return reinterpret_cast<HHOOK>(static_cast<std::uintptr_t>(value));
}

// Called by a one-shot procedure, in the host's process: removes the hook and clears its published
// handle, which tells the installer that it has fired.
void RemoveFiredHook(volatile std::uint64_t& published) noexcept;

// Passes a hook call on.
LRESULT CallNext(volatile std::uint64_t& published, int code, WPARAM wParam, LPARAM lParam) noexcept;

// The message of a WH_CALLWNDPROC call if it is `awaited`, else null; also null for a negative code and
// for an identifier that was never registered.
const CWPSTRUCT* AwaitedCall(int code, LPARAM lParam, UINT awaited) noexcept;

} // namespace hostlink
