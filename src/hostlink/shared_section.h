// The data section of the module that every process which maps it shares: the one place where the
// script's side and the hook procedures in the host's process meet.
//
// There is no lock: one exchange is in flight at a time on the whole desktop. Any process can write
// here, so whoever reads in the host's process checks what it reads.
#pragma once

#include <cstddef>
#include <cstdint>

#include <windows.h>

namespace hostlink {

inline constexpr std::size_t kRemoteDataSize = 1024;   // bytes
inline constexpr std::size_t kRemoteStringSize = 1024; // bytes, terminator included

// The layout is the contract between the copies of the module in different processes. Handles are
// kept as 64-bit integers.
struct SharedSection {
    volatile std::uint32_t sendRemotelyMsg; // "MSG_GH_SEND_REMOTELY", 0 until first registered
    volatile std::uint32_t syncSeen;        // 1 when the host has taken the last "MSG_GH_SYNC"
    volatile std::uint64_t remoteHook;      // hook of the current remote send or key-state change
    volatile std::uint64_t syncPopup;       // popup dialog created during synchronisation
    volatile std::uint32_t setKeyStateMsg;  // "MSG_GH_SET_KEY_STATE", 0 until first registered
    volatile std::uint32_t remoteMsg;
    volatile std::uint64_t remoteStringOffset; // of the string descriptor inside remoteData
    volatile std::uint64_t foregroundHook;
    volatile std::int64_t remoteResult;
    volatile std::uint64_t remoteWParam;
    volatile std::uint64_t remoteTarget;
    volatile std::uint64_t menuCaptureHook;
    volatile std::uint64_t capturedMenuWindow; // last "#32768" window created during the capture
    volatile std::uint64_t capturedBarWindow;  // last "BCGToolBar…" or "BCGPToolBar…" window
    volatile std::uint64_t syncCreateHook;
    volatile std::uint64_t syncQueueHook;
    char remoteData[kRemoteDataSize];     // the block of a remote send, in and out
    char remoteString[kRemoteStringSize]; // NUL-terminated
    volatile std::uint8_t mouseBlocked;
    volatile std::uint8_t allowMouseBlocks;
    volatile std::uint64_t mouseBlockHook;
    volatile std::uint64_t localeHook;
    volatile std::uint32_t hostLocale; // LCID
};

static_assert(offsetof(SharedSection, sendRemotelyMsg) == 0x000);
static_assert(offsetof(SharedSection, syncSeen) == 0x004);
static_assert(offsetof(SharedSection, remoteHook) == 0x008);
static_assert(offsetof(SharedSection, syncPopup) == 0x010);
static_assert(offsetof(SharedSection, setKeyStateMsg) == 0x018);
static_assert(offsetof(SharedSection, remoteMsg) == 0x01C);
static_assert(offsetof(SharedSection, remoteStringOffset) == 0x020);
static_assert(offsetof(SharedSection, foregroundHook) == 0x028);
static_assert(offsetof(SharedSection, remoteResult) == 0x030);
static_assert(offsetof(SharedSection, remoteWParam) == 0x038);
static_assert(offsetof(SharedSection, remoteTarget) == 0x040);
static_assert(offsetof(SharedSection, menuCaptureHook) == 0x048);
static_assert(offsetof(SharedSection, capturedMenuWindow) == 0x050);
static_assert(offsetof(SharedSection, capturedBarWindow) == 0x058);
static_assert(offsetof(SharedSection, syncCreateHook) == 0x060);
static_assert(offsetof(SharedSection, syncQueueHook) == 0x068);
static_assert(offsetof(SharedSection, remoteData) == 0x070);
static_assert(offsetof(SharedSection, remoteString) == 0x470);
static_assert(offsetof(SharedSection, mouseBlocked) == 0x870);
static_assert(offsetof(SharedSection, allowMouseBlocks) == 0x871);
static_assert(offsetof(SharedSection, mouseBlockHook) == 0x878);
static_assert(offsetof(SharedSection, localeHook) == 0x880);
static_assert(offsetof(SharedSection, hostLocale) == 0x888);
// The variables end at 0x88C; alignment pads the object.
static_assert(offsetof(SharedSection, hostLocale) + sizeof(std::uint32_t) == 0x88C);
static_assert(sizeof(SharedSection) == 0x890);

extern SharedSection shared;

// Window handles have 32 significant bits, in whatever way they were extended to 64.
inline HWND ToWindow(std::uint64_t value) noexcept {
    return reinterpret_cast<HWND>(static_cast<std::intptr_t>(static_cast<std::int32_t>(value)));
}
inline bool IsSameWindow(HWND one, HWND other) noexcept {
    return static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(one)) ==
           static_cast<std::uint32_t>(reinterpret_cast<std::uintptr_t>(other));
}

inline std::uint64_t FromHandle(const void* handle) noexcept {
    return reinterpret_cast<std::uintptr_t>(handle);
}

} // namespace hostlink
