// A hook of the tests that answers a message in the sample host's process as a host's control would, rightly
// and wrongly.
#pragma once

#include "support/this_module.h"

#include <windows.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <thread>

namespace host_tests {

// wParam of the message: what to do with the block that lParam points at.
enum Answer : WPARAM {
    kIncrementBlock = 1, // each byte of 1024
    kReadKeys,           // the keyboard state of the thread into the block
    kReverseText,        // the text in the buffer
    kFillBuffer,         // the whole buffer, without a terminator
    kPointToOwnText,
    kPointToLongText, // of 2000 characters
    kPointNowhere,
    kPointBeforeUnreadable, // at "end" without a terminator, with unreadable memory behind it
    kHold,                  // nothing until the test lets go
};

// The high half of wParam: where in the block the text's descriptor is.
inline WPARAM AnswerAt(Answer answer, std::size_t offset) {
    return static_cast<WPARAM>(answer) | static_cast<WPARAM>(offset) << 16;
}

inline UINT AnswerMessage() {
    return RegisterWindowMessageA("GHOSTHAND_TEST_ANSWER");
}

// Named events: the two sides are two processes.
inline HANDLE Event(const char* name) {
    return CreateEventA(nullptr, FALSE, FALSE, name);
}
inline constexpr char kHeldEvent[] = "GhosthandTestHeld";
inline constexpr char kReleaseEvent[] = "GhosthandTestRelease";

inline void PointTo(std::byte* descriptor, const void* text) {
    const auto address = reinterpret_cast<std::uint64_t>(text);
    std::memcpy(descriptor, &address, sizeof address);
}

inline const char* TextBeforeUnreadable() {
    constexpr std::size_t kPage = 4096;
    char* const pages = static_cast<char*>(VirtualAlloc(nullptr, 2 * kPage, MEM_RESERVE, PAGE_NOACCESS));
    VirtualAlloc(pages, kPage, MEM_COMMIT, PAGE_READWRITE);
    return static_cast<char*>(std::memcpy(pages + kPage - 3, "end", 3));
}

inline void Hold() {
    const HANDLE held = Event(kHeldEvent);
    const HANDLE release = Event(kReleaseEvent);
    SetEvent(held);
    WaitForSingleObject(release, 60000);
    CloseHandle(release);
    CloseHandle(held);
}

inline void GiveAnswer(WPARAM order, std::byte* block) {
    static const std::string longText(2000, 'y');
    std::byte* const descriptor = block + (order >> 16);
    char* buffer = nullptr;
    std::uint32_t capacity = 0;
    const auto readDescriptor = [&] {
        std::memcpy(&buffer, descriptor, sizeof buffer);
        std::memcpy(&capacity, descriptor + 8, sizeof capacity);
    };
    switch (order & 0xFFFF) {
    case kIncrementBlock:
        std::transform(block, block + 1024, block, [](std::byte value) {
            return static_cast<std::byte>(std::to_integer<unsigned>(value) + 1);
        });
        break;
    case kReadKeys:
        GetKeyboardState(reinterpret_cast<BYTE*>(block));
        break;
    case kReverseText:
        readDescriptor();
        std::reverse(buffer, buffer + std::strlen(buffer));
        break;
    case kFillBuffer:
        readDescriptor();
        std::memset(buffer, 'x', capacity);
        break;
    case kPointToOwnText:
        PointTo(descriptor, "own text");
        break;
    case kPointToLongText:
        PointTo(descriptor, longText.c_str());
        break;
    case kPointNowhere:
        PointTo(descriptor, reinterpret_cast<const void*>(std::uintptr_t{0x10}));
        break;
    case kPointBeforeUnreadable:
        PointTo(descriptor, TextBeforeUnreadable());
        break;
    case kHold:
        Hold();
        break;
    default:
        break;
    }
}

class AnsweringHook {
public:
    explicit AnsweringHook(DWORD threadId)
        : m_hook(SetWindowsHookExA(WH_CALLWNDPROC, Procedure, support::ThisModule(), threadId)) {}
    ~AnsweringHook() { UnhookWindowsHookEx(m_hook); }
    AnsweringHook(const AnsweringHook&) = delete;
    AnsweringHook& operator=(const AnsweringHook&) = delete;

private:
    static LRESULT CALLBACK Procedure(int code, WPARAM wParam, LPARAM lParam) {
        const auto& call = *reinterpret_cast<const CWPSTRUCT*>(lParam);
        if (code >= 0 && call.message == AnswerMessage()) {
            GiveAnswer(call.wParam, reinterpret_cast<std::byte*>(call.lParam));
        }
        return CallNextHookEx(nullptr, code, wParam, lParam);
    }

    HHOOK m_hook;
};

// A host whose GUI thread does nothing until Release(). Needs an AnsweringHook.
class HeldHost {
public:
    explicit HeldHost(HWND window)
        : m_held(Event(kHeldEvent)), m_release(Event(kReleaseEvent)),
          m_sender([window] { SendMessageA(window, AnswerMessage(), kHold, 0); }) {
        WaitForSingleObject(m_held, 60000);
    }
    ~HeldHost() {
        Release();
        m_sender.join();
        ResetEvent(m_release);
        CloseHandle(m_release);
        CloseHandle(m_held);
    }
    HeldHost(const HeldHost&) = delete;
    HeldHost& operator=(const HeldHost&) = delete;

    void Release() const { SetEvent(m_release); }

private:
    HANDLE m_held;
    HANDLE m_release;
    std::thread m_sender;
};

} // namespace host_tests
