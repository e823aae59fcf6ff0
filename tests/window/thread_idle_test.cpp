#include "engine/thread_idle.h"

#include <gtest/gtest.h>

#include <future>
#include <thread>

namespace {

using engine::QueryThreadIdle;
using engine::ThreadIdleState;

TEST(ThreadIdle, CannotTellForNoThreadAndForTheCaller) {
    EXPECT_EQ(QueryThreadIdle(0), ThreadIdleState::CannotTell);
    EXPECT_EQ(QueryThreadIdle(GetCurrentThreadId()), ThreadIdleState::CannotTell);
    EXPECT_EQ(QueryThreadIdle(0xFFFF'FFF0), ThreadIdleState::CannotTell);
}

// Some systems publish no threads in their performance data; what must not happen is a failed query.
TEST(ThreadIdle, AThreadInItsMessageLoopIsNotBusyForEver) {
    std::promise<DWORD> started;
    std::thread waiting([&] {
        MSG message;
        PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE); // makes the thread's queue
        started.set_value(GetCurrentThreadId());
        while (GetMessageA(&message, nullptr, 0, 0) > 0) {
        }
    });
    const DWORD threadId = started.get_future().get();

    testing::internal::CaptureStdout();
    ThreadIdleState state = ThreadIdleState::Busy;
    for (int round = 0; round < 200 && state == ThreadIdleState::Busy; ++round) {
        state = QueryThreadIdle(threadId);
        Sleep(state == ThreadIdleState::Busy ? 50 : 0);
    }
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_NE(state, ThreadIdleState::Busy);

    PostThreadMessageA(threadId, WM_QUIT, 0, 0);
    waiting.join();
}

} // namespace
