#include "hostlink/walk.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>

#include "hostlink/digest.h"
#include "hostlink/hook.h"
#include "hostlink/host_locale.h"
#include "hostlink/module_sends.h"
#include "hostlink/registered_messages.h"
#include "hostlink/shared_section.h"
#include "hostlink/shared_variable.h"

namespace hostlink {

namespace {

// The host's thread is left after so long: with a last step of some milliseconds it stays below 20.
constexpr LONGLONG kSliceMilliseconds = 10;
// For the host's own messages: one that is sent goes before what is posted and painted.
constexpr DWORD kPauseMilliseconds = 1;

enum class Turn : std::uint32_t { Host, ScriptGoesOn, ScriptEnded };

// A walk on its way, as it stands in the section.
struct Message {
    std::uint64_t walk;   // which one: other walks' hooks can wait in the same thread
    std::uint64_t target; // the control
    std::uint64_t ticket; // of the one exchange that this belongs to
    Turn turn;            // whose it is to read
    std::uint32_t positionSize;
    std::uint32_t wantedSize;
    std::uint32_t padding;
    char position[kWalkPositionSize];
    char wanted[kWalkTextSize];
};

// One walk at a time has it.
struct Way {
    volatile LONG owner; // the id of the script's thread, 0 for none
    std::uint32_t padding;
    volatile std::uint64_t hook;
    volatile std::uint64_t seal;
    Message message;
};

constexpr std::size_t kWays = 4;
GHOSTHAND_SHARED_VARIABLE constinit Way ways[kWays] = {};

// The same in each process that has loaded the module.
std::uint64_t Identify(HOOKPROC slice) noexcept {
    return reinterpret_cast<std::uintptr_t>(slice) - reinterpret_cast<std::uintptr_t>(&WalkSlice);
}

bool IsWithinBounds(const Message& message) noexcept {
    return message.positionSize <= sizeof message.position && message.wantedSize <= sizeof message.wanted;
}

std::uint64_t SealOf(const Message& message) noexcept {
    Digest digest;
    digest.Add(message.walk);
    digest.Add(message.target);
    digest.Add(message.ticket);
    digest.Add(static_cast<std::uint32_t>(message.turn));
    digest.Add(message.positionSize);
    digest.Add(message.wantedSize);
    digest.Add({message.position, message.positionSize});
    digest.Add({message.wanted, message.wantedSize});
    return digest.Value();
}

// Copies no more than is in use. What is checked is a copy that nobody can change any more: the fence keeps
// the compiler from looking at the original once more instead.
void CopyMessage(const Message& from, Message& to) noexcept {
    std::memcpy(&to, &from, offsetof(Message, position));
    std::atomic_signal_fence(std::memory_order_seq_cst);
    if (IsWithinBounds(to)) {
        std::memcpy(to.position, from.position, to.positionSize);
        std::memcpy(to.wanted, from.wanted, to.wantedSize);
    }
    std::atomic_signal_fence(std::memory_order_seq_cst);
}

void Publish(Way& way, const Message& message) noexcept {
    way.seal = 0;
    CopyMessage(message, way.message);
    way.seal = SealOf(message);
}

// False if what stands there is not what somebody published.
bool Fetch(const Way& way, Message& message) noexcept {
    CopyMessage(way.message, message);
    return IsWithinBounds(message) && way.seal == SealOf(message);
}

bool HasEnded(DWORD threadId) noexcept {
    const HANDLE thread = OpenThread(SYNCHRONIZE, FALSE, threadId);
    if (thread == nullptr) {
        return GetLastError() == ERROR_INVALID_PARAMETER;
    }
    const bool ended = WaitForSingleObject(thread, 0) == WAIT_OBJECT_0;
    CloseHandle(thread);
    return ended;
}

// A way for the lifetime of the object: one that is free, or whose owner was ended on it; null if there is
// none.
class OwnedWay {
public:
    OwnedWay() noexcept {
        for (Way& way : ways) {
            const LONG owner = way.owner;
            if ((owner == 0 || HasEnded(static_cast<DWORD>(owner))) &&
                InterlockedCompareExchange(&way.owner, m_self, owner) == owner) {
                m_way = &way;
                return;
            }
        }
    }
    ~OwnedWay() {
        if (m_way != nullptr) {
            InterlockedCompareExchange(&m_way->owner, 0, m_self);
        }
    }
    OwnedWay(const OwnedWay&) = delete;
    OwnedWay& operator=(const OwnedWay&) = delete;

    Way* Get() const noexcept { return m_way; }
    WPARAM Number() const noexcept { return static_cast<WPARAM>(m_way - ways); }

private:
    LONG m_self = static_cast<LONG>(GetCurrentThreadId());
    Way* m_way = nullptr;
};

LRESULT CALLBACK PassOn(int code, WPARAM wParam, LPARAM lParam) noexcept {
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

// Keeps the module in the host for the lifetime of the object, by a hook that no message of a walk passes:
// the system may unload a module from whose procedures no hook is left, even during a slice.
class ModuleInHost {
public:
    explicit ModuleInHost(const HostWindow& host) noexcept
        : m_hook(m_handle, WH_SHELL, PassOn, host.threadId) {}

private:
    volatile std::uint64_t m_handle = 0;
    ScopedHook m_hook;
};

LONGLONG Now() noexcept {
    LARGE_INTEGER count;
    QueryPerformanceCounter(&count);
    return count.QuadPart;
}

LONGLONG CountsPerMillisecond() noexcept {
    LARGE_INTEGER frequency;
    QueryPerformanceFrequency(&frequency);
    return frequency.QuadPart / 1000;
}

// Steps until the walk or the time ends; true if the walk has not ended. Unlike other work of a hook a step
// takes memory of the module's heap and can fail to get it: the control's answers, to which its messages lead
// in any case, do the same.
bool TakeSteps(const HostWindow& control, std::string_view wanted, std::span<std::byte> position,
               ErasedStep step) {
    const LONGLONG end = Now() + kSliceMilliseconds * CountsPerMillisecond();
    while (step(control, wanted, position)) {
        if (Now() >= end) {
            return true;
        }
    }
    return false;
}

void Answer(Way& way, Message& message, std::span<std::byte> position, ErasedStep step) noexcept {
    std::memcpy(position.data(), message.position, position.size());
    const HostWindow control = {ToWindow(message.target), GetCurrentThreadId()};
    try {
        const bool goesOn = TakeSteps(control, {message.wanted, message.wantedSize}, position, step);
        message.turn = goesOn ? Turn::ScriptGoesOn : Turn::ScriptEnded;
    } catch (...) {
        return; // without an answer: the script goes on from where it stood
    }
    std::memcpy(message.position, position.data(), position.size());
    // A script that was ended meanwhile may have left its way to another one.
    if (way.message.ticket == message.ticket) {
        Publish(way, message);
    }
}

// One slice. None if the host's side has not answered.
std::optional<Turn> Exchange(const OwnedWay& owned, const HostWindow& control, Message& message,
                             HOOKPROC slice) noexcept {
    Way& way = *owned.Get();
    const UINT signal = WalkMessage();
    message.turn = Turn::Host;
    message.ticket = static_cast<std::uint64_t>(Now());
    Publish(way, message);
    {
        const ScopedHook hook(way.hook, WH_CALLWNDPROC, slice, control.threadId);
        if (!hook.Installed()) {
            return std::nullopt;
        }
        SendMessageA(control.window, signal, owned.Number(), 0);
    }
    Message answer;
    const bool isAnswer = Fetch(way, answer) && answer.turn != Turn::Host &&
                          answer.ticket == message.ticket && answer.positionSize == message.positionSize;
    if (!isAnswer) {
        return std::nullopt;
    }
    std::memcpy(message.position, answer.position, answer.positionSize);
    return answer.turn;
}

} // namespace

LRESULT WalkSlice(int code, WPARAM wParam, LPARAM lParam, HOOKPROC slice, std::span<std::byte> position,
                  ErasedStep step) noexcept {
    const CWPSTRUCT* call = AwaitedCall(code, lParam, WalkMessage());
    if (call != nullptr && call->wParam < kWays) {
        Way& way = ways[call->wParam];
        Message message;
        const bool isMeant = Fetch(way, message) && message.turn == Turn::Host &&
                             message.walk == Identify(slice) && message.positionSize == position.size() &&
                             IsSameWindow(call->hwnd, ToWindow(message.target));
        // The hook goes before the first step, so that the messages of the walk do not pass it.
        if (isMeant && RemoveFiredHook(way.hook)) {
            Answer(way, message, position, step);
        }
    }
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

bool WalkInHost(const HostWindow& control, std::string_view wanted, std::span<std::byte> position,
                HOOKPROC slice) noexcept {
    // A program that is not the module has no procedure that the system could carry into the host.
    if (control.threadId == 0 || IsOfThisThread(control) || SendsThroughModule() ||
        wanted.size() > kWalkTextSize) {
        return false;
    }
    const OwnedWay way;
    if (way.Get() == nullptr) {
        return false;
    }
    Message message;
    message.walk = Identify(slice);
    message.target = FromHandle(control.window);
    message.positionSize = static_cast<std::uint32_t>(position.size());
    message.wantedSize = static_cast<std::uint32_t>(wanted.size());
    message.padding = 0;
    std::memcpy(message.position, position.data(), position.size());
    if (!wanted.empty()) {
        std::memcpy(message.wanted, wanted.data(), wanted.size());
    }
    const ModuleInHost module(control);
    const ScopedLocaleHookRemoval noLocaleHook(control); // the messages of the walk pass no hook
    for (;;) {
        const std::optional<Turn> turn = Exchange(way, control, message, slice);
        std::memcpy(position.data(), message.position, position.size());
        if (turn != Turn::ScriptGoesOn) {
            return turn.has_value();
        }
        Sleep(kPauseMilliseconds);
    }
}

} // namespace hostlink
