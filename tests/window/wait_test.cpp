// The wait loop: how often it asks, what it answers, what it reports.
#include "engine/diagnostics.h"
#include "engine/wait_loop.h"

#include <gmock/gmock.h>

#include <windows.h>

#include <functional>
#include <limits>
#include <memory>
#include <string>

namespace {

using engine::Wait;

std::string reported;

class WaitLoop : public testing::Test {
protected:
    WaitLoop() {
        reported.clear();
        engine::diagnostics::SetSink([](std::string_view text) { reported += text; });
    }
    ~WaitLoop() override { engine::diagnostics::SetSink(nullptr); }
};

TEST_F(WaitLoop, AsksOnceWithoutTimeAndAnswersFalseEvenOnSuccess) {
    for (const int timeout : {0, -1, std::numeric_limits<int>::min()}) {
        int asked = 0;
        EXPECT_FALSE(Wait(
            timeout, [&] { return ++asked == 1; }, "unused"));
        EXPECT_EQ(asked, 1);
        EXPECT_EQ(reported, "");
        EXPECT_FALSE(Wait(
            timeout, [&] { return ++asked < 0; }, "Failed to wait for it."));
        EXPECT_EQ(asked, 2);
        EXPECT_EQ(reported, "Failed to wait for it.");
        reported.clear();
    }
}

TEST_F(WaitLoop, AsksElevenTimesInASecond) {
    int asked = 0;
    EXPECT_FALSE(Wait(
        1, [&] { return ++asked < 0; }, "late"));
    EXPECT_EQ(asked, 11);
    EXPECT_EQ(reported, "late");
    asked = 0;
    reported.clear();
    EXPECT_FALSE(Wait(
        1, [&] { return ++asked == 11; }, "late")); // found on the last try, with no time left
    EXPECT_EQ(reported, "");
    asked = 0;
    EXPECT_TRUE(Wait(
        1, [&] { return ++asked == 10; }, "late"));
}

TEST_F(WaitLoop, SaturatesAnEndlessTimeout) {
    for (const int timeout : {std::numeric_limits<int>::max(), std::numeric_limits<int>::max() / 1000 + 1}) {
        int asked = 0;
        EXPECT_TRUE(Wait(
            timeout, [&] { return ++asked == 3; }, ""));
    }
}

TEST_F(WaitLoop, EndsWithTheWindowThatItNeeds) {
    static HWND window;
    window = CreateWindowExA(0, "Static", "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    SetTimer(nullptr, 0, 150, [](HWND, UINT, UINT_PTR timer, DWORD) {
        KillTimer(nullptr, timer);
        DestroyWindow(window);
    });
    int asked = 0;
    EXPECT_FALSE(Wait(
        60, [&] { return ++asked < 0; }, "gone", window));
    EXPECT_GT(asked, 1);
    EXPECT_LT(asked, 100);
    EXPECT_EQ(reported, "gone");
}

TEST_F(WaitLoop, LetsThePredicateGoAndRefusesAnEmptyOne) {
    const auto guest = std::make_shared<int>(0);
    Wait(
        0, [guest] { return true; }, "");
    EXPECT_EQ(guest.use_count(), 1);
    EXPECT_THROW(Wait(5, nullptr, ""), std::bad_function_call);
}

TEST_F(WaitLoop, DispatchesTheThreadsMessagesMeanwhile) {
    static bool fired;
    fired = false;
    const UINT_PTR timer = SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR, DWORD) { fired = true; });
    EXPECT_TRUE(Wait(
        60, [] { return fired; }, ""));
    KillTimer(nullptr, timer);
}

} // namespace
