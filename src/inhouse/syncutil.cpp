#include "inhouse/syncutil.h"

#include <chrono>
#include <optional>

namespace {

class Deadline {
public:
    explicit Deadline(DWORD milliseconds) {
        if (milliseconds != INFINITE)
            m_end = Clock::now() + std::chrono::milliseconds(milliseconds);
    }

    // In milliseconds, rounded up so that a wait never ends before its time; INFINITE for no limit.
    DWORD Remaining() const {
        if (!m_end)
            return INFINITE;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*m_end - Clock::now()).count();
        return left > 0 ? static_cast<DWORD>(left) : 0;
    }

private:
    using Clock = std::chrono::steady_clock;
    std::optional<Clock::time_point> m_end;
};

DWORD WaitWithoutMessages(DWORD count, const HANDLE* handles, DWORD milliseconds) {
    if (count != 0)
        return WaitForMultipleObjects(count, handles, FALSE, milliseconds);
    Sleep(milliseconds);
    return WAIT_TIMEOUT;
}

enum class Pumped { Emptied, TimeIsUp, Quit };

// The wide functions serve windows of either character set without loss.
Pumped DispatchPendingMessages(const Deadline& deadline) {
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE)) {
        if (message.message == WM_QUIT) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return Pumped::Quit;
        }
        TranslateMessage(&message);
        DispatchMessageW(&message);
        // Messages that stream in must not hold the caller beyond its time.
        if (deadline.Remaining() == 0)
            return Pumped::TimeIsUp;
    }
    return Pumped::Emptied;
}

} // namespace

DWORD SafeWaitWithMessageLoop(DWORD count, const HANDLE* handles, DWORD milliseconds, BOOL pumpMessages,
                              void* /*reserved*/) {
    if (!pumpMessages)
        return WaitWithoutMessages(count, handles, milliseconds);

    const Deadline deadline(milliseconds);
    for (;;) {
        const DWORD result = MsgWaitForMultipleObjectsEx(count, handles, deadline.Remaining(), QS_ALLINPUT,
                                                         MWMO_INPUTAVAILABLE);
        if (result == WAIT_TIMEOUT && deadline.Remaining() != 0)
            continue; // the system's timer is coarser than the clock and may fire a little early
        if (result != WAIT_OBJECT_0 + count)
            return result;

        const Pumped pumped = DispatchPendingMessages(deadline);
        if (pumped == Pumped::Quit && count == 0 && milliseconds == INFINITE)
            return WAIT_TIMEOUT; // nothing is left that could end this wait
        if (pumped != Pumped::Emptied)
            return WaitWithoutMessages(count, handles, deadline.Remaining());
    }
}
