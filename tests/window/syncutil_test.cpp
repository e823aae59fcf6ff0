#include "inhouse/syncutil.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <utility>

namespace {

using Clock = std::chrono::steady_clock;
constexpr DWORD kWait = 100;

// A message-only window of the test's thread that hands WM_APP and WM_TIMER to the test.
class Receiver {
public:
    explicit Receiver(std::function<void()> onMessage) : m_onMessage(std::move(onMessage)) {
        m_window =
            CreateWindowExA(0, "STATIC", nullptr, 0, 0, 0, 0, 0, HWND_MESSAGE, nullptr, nullptr, nullptr);
        SetWindowLongPtrA(m_window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(this));
        SetWindowLongPtrA(m_window, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(&Procedure));
    }
    Receiver(const Receiver&) = delete;
    Receiver& operator=(const Receiver&) = delete;
    ~Receiver() {
        DestroyWindow(m_window);
        MSG message; // what a test leaves behind must not reach the next one
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        }
    }

    void Post() const { PostMessageA(m_window, WM_APP, 0, 0); }
    void StartTimer() const { SetTimer(m_window, 1, USER_TIMER_MINIMUM, nullptr); }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_APP || message == WM_TIMER)
            reinterpret_cast<Receiver*>(GetWindowLongPtrA(window, GWLP_USERDATA))->m_onMessage();
        return DefWindowProcA(window, message, wParam, lParam);
    }

    std::function<void()> m_onMessage;
    HWND m_window = nullptr;
};

class Event {
public:
    Event() = default;
    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;
    ~Event() { CloseHandle(m_handle); }
    HANDLE Get() const { return m_handle; }

private:
    HANDLE m_handle = CreateEventA(nullptr, TRUE, FALSE, nullptr);
};

struct Outcome {
    DWORD result;
    bool lastedItsTime;
};

Outcome WaitOnNothing(BOOL pumpMessages) {
    const auto begin = Clock::now();
    const DWORD result = SafeWaitWithMessageLoop(0, nullptr, kWait, pumpMessages, nullptr);
    return {result, Clock::now() - begin >= std::chrono::milliseconds(kWait)};
}

TEST(SafeWait, LastsItsFullTimeWithoutMessages) {
    for (const BOOL pumpMessages : {TRUE, FALSE}) {
        const auto [result, lastedItsTime] = WaitOnNothing(pumpMessages);
        EXPECT_EQ(result, static_cast<DWORD>(WAIT_TIMEOUT));
        EXPECT_TRUE(lastedItsTime);
    }
}

TEST(SafeWait, LastsItsFullTimeAndNoLongerWhileMessagesStreamIn) {
    int received = 0;
    const Receiver* self = nullptr;
    // Each message is followed by the next, so that the queue never empties; the limit ends a failed test.
    const Receiver receiver([&] {
        if (++received < 50'000'000)
            self->Post();
    });
    self = &receiver;
    receiver.Post();
    const auto [result, lastedItsTime] = WaitOnNothing(TRUE);
    EXPECT_EQ(result, static_cast<DWORD>(WAIT_TIMEOUT));
    EXPECT_TRUE(lastedItsTime);
    EXPECT_GT(received, 1);
    EXPECT_LT(received, 50'000'000);
}

TEST(SafeWait, LeavesMessagesAloneWhenNotToldToPump) {
    int received = 0;
    const Receiver receiver([&] { ++received; });
    receiver.Post();
    EXPECT_TRUE(WaitOnNothing(FALSE).lastedItsTime);
    EXPECT_EQ(received, 0);
}

TEST(SafeWait, PutsQuitBackAndStillLastsItsTime) {
    int received = 0;
    const Receiver receiver([&] { ++received; });
    receiver.Post();
    PostQuitMessage(7);
    for (int round = 0; round < 2; ++round) {
        const auto [result, lastedItsTime] = WaitOnNothing(TRUE);
        EXPECT_EQ(result, static_cast<DWORD>(WAIT_TIMEOUT));
        EXPECT_TRUE(lastedItsTime);
    }
    EXPECT_EQ(received, 1);
    EXPECT_EQ(SafeWaitWithMessageLoop(0, nullptr, INFINITE, TRUE, nullptr), static_cast<DWORD>(WAIT_TIMEOUT));

    MSG message{};
    ASSERT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_QUIT));
    EXPECT_EQ(message.wParam, 7u);
}

TEST(SafeWait, AnswersTheHandleThatIsSignalled) {
    const Event first, second;
    const HANDLE handles[] = {first.Get(), second.Get()};
    for (const BOOL pumpMessages : {TRUE, FALSE})
        EXPECT_EQ(SafeWaitWithMessageLoop(2, handles, kWait, pumpMessages, nullptr),
                  static_cast<DWORD>(WAIT_TIMEOUT));

    // Only a message that is dispatched during the wait can end it.
    const Receiver receiver([&] { SetEvent(second.Get()); });
    receiver.Post();
    EXPECT_EQ(SafeWaitWithMessageLoop(2, handles, INFINITE, TRUE, nullptr), WAIT_OBJECT_0 + 1);
    EXPECT_EQ(SafeWaitWithMessageLoop(2, handles, 0, FALSE, nullptr), WAIT_OBJECT_0 + 1);

    // The queue empties and fills again several times within one wait.
    int ticks = 0;
    const Receiver clock([&] {
        if (++ticks == 3)
            SetEvent(first.Get());
    });
    clock.StartTimer();
    EXPECT_EQ(SafeWaitWithMessageLoop(1, handles, 30'000, TRUE, nullptr), WAIT_OBJECT_0);
    ResetEvent(first.Get());

    // The handle still ends the wait when quitting has stopped the dispatching.
    PostQuitMessage(0);
    EXPECT_EQ(SafeWaitWithMessageLoop(2, handles, INFINITE, TRUE, nullptr), WAIT_OBJECT_0 + 1);
}

} // namespace
