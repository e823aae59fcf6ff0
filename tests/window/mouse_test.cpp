// Mouse operations, as the messages that a window gets.
#include "engine/wait_loop.h"
#include "input/mouse.h"
#include "input/mouse_block.h"
#include "support/input_window.h"

#include <gmock/gmock.h>

namespace {

using support::InputMessage;
using testing::ElementsAre;

constexpr LPARAM kPoint = 0x0014000A; // of (10, 20)

class MouseTest : public testing::Test {
protected:
    static void SetUpTestSuite() { input::SetAllowMouseBlocks(false); }

    void SetUp() override {
        SetCursorPos(900, 700);
    } // away from the windows, which then see posted moves only

    InputMessage Seen(UINT message, WPARAM wParam) const { return {m_host.Frame(), message, wParam, kPoint}; }
    InputMessage Marker() const { return {m_host.Frame(), support::InputWindow::Marker(), 0, 0}; }
    InputMessage KeyState(WPARAM stateAndKey) const {
        return {m_host.Frame(), support::InputWindow::KeyState(), stateAndKey, 0};
    }
    // What came of button messages.
    std::vector<InputMessage> TakeButtons() {
        auto seen = m_host.Take();
        std::erase_if(seen, [](const InputMessage& message) {
            return message.message <= WM_MOUSEMOVE || message.message > WM_MOUSELAST;
        });
        return seen;
    }
    // Waits until it stays there: under Wine an earlier move of the cursor may come back late.
    static void PutCursor(int x, int y) {
        POINT cursor{};
        for (int round = 0; round < 100 && (round == 0 || cursor.x != x || cursor.y != y); ++round) {
            SetCursorPos(x, y);
            engine::PumpOneStep();
            GetCursorPos(&cursor);
        }
    }
    POINT CursorInFrame() const {
        POINT cursor{};
        GetCursorPos(&cursor);
        ScreenToClient(m_host.Frame(), &cursor);
        return cursor;
    }

    support::InputWindow m_host;
    ghBaseWindow m_window{m_host.Frame()};
};

TEST_F(MouseTest, ClickIsPostedForEachButton) {
    const struct {
        int code;
        UINT press;
        WPARAM bit;
    } buttons[] = {{1, 0x201, 0x01}, {2, 0x204, 0x02}, {3, 0x207, 0x10}};
    for (const auto& [code, press, bit] : buttons) {
        SCOPED_TRACE(code);
        input::Click(m_window, code, 10, 20, 0);
        EXPECT_THAT(m_host.Take(), ElementsAre(Seen(WM_MOUSEMOVE, 0), Seen(press, bit), Marker(),
                                               Seen(WM_MOUSEMOVE, bit), Seen(press + 1, 0), Marker()));
    }
}

// Its release is message 1, which the system refuses to post: it carries a pointer.
TEST_F(MouseTest, ClickOfAnUnknownButtonPostsMessageZero) {
    input::Click(m_window, 4, 10, 20, 0);
    EXPECT_THAT(m_host.Take(),
                ElementsAre(Seen(WM_MOUSEMOVE, 0), Seen(0, 0), Marker(), Seen(WM_MOUSEMOVE, 0), Marker()));
}

TEST_F(MouseTest, MouseUpOfAnUnknownButtonPostsMessageZero) {
    input::MouseUp(m_window, 4, 10, 20, 0x40);
    EXPECT_THAT(m_host.Take(), ElementsAre(Seen(WM_MOUSEMOVE, 0x40), Marker(), Seen(WM_MOUSEMOVE, 0x40),
                                           Seen(0, 0x40), Marker()));
}

// The message behind its release would be the end of the window.
TEST_F(MouseTest, DoubleClickOfAnUnknownButtonHasNoSecondPress) {
    input::DoubleClick(m_window, 4, 10, 20, 0);
    EXPECT_TRUE(IsWindow(m_host.Frame()));
    EXPECT_THAT(m_host.Take(),
                ElementsAre(Seen(WM_MOUSEMOVE, 0), Seen(0, 0), Marker(), Seen(WM_MOUSEMOVE, 0), Marker(),
                            Seen(WM_MOUSEMOVE, 0), Marker(), Seen(WM_MOUSEMOVE, 0), Marker()));
}

TEST_F(MouseTest, InputWaitsUntilTheWindowIsEnabled) {
    EnableWindow(m_host.Frame(), FALSE);
    m_host.Thread().Start([this] {
        Sleep(2000);
        EnableWindow(m_host.Frame(), TRUE);
    });
    m_window.SetSynchronization(false); // which would wait for the thread, too
    input::Click(m_window, 1, 10, 20, 0);
    EXPECT_TRUE(IsWindowEnabled(m_host.Frame()));
}

TEST_F(MouseTest, ModifiersAreHeldAroundTheMessagesAndNoKeyIsSent) {
    input::Click(m_window, 1, 10, 20, 0x80 | 0x2C | 0x40);
    EXPECT_THAT(TakeButtons(), testing::SizeIs(2)) << "0x80 makes it a real click";

    input::Click(m_window, 1, 10, 20, 0x2C | 0x40);
    EXPECT_EQ(m_host.HeldWhenSeen(), 0x2C);
    EXPECT_EQ(m_host.HeldNow(), 0);
    EXPECT_THAT(m_host.Take(), ElementsAre(KeyState(0xF011), KeyState(0xF010), KeyState(0xF012),
                                           Seen(WM_MOUSEMOVE, 0x6C), Seen(WM_LBUTTONDOWN, 0x6D), Marker(),
                                           Seen(WM_MOUSEMOVE, 0x6D), Seen(WM_LBUTTONUP, 0x6C), Marker(),
                                           KeyState(0x0011), KeyState(0x0010), KeyState(0x0012)));
}

TEST_F(MouseTest, DoubleClickIsPosted) {
    input::DoubleClick(m_window, 2, 10, 20, 0x80); // 0x80 means nothing here, and stays
    EXPECT_THAT(m_host.Take(), ElementsAre(Seen(WM_MOUSEMOVE, 0x80), Seen(WM_RBUTTONDOWN, 0x82), Marker(),
                                           Seen(WM_MOUSEMOVE, 0x82), Seen(WM_RBUTTONUP, 0x80), Marker(),
                                           Seen(WM_MOUSEMOVE, 0x82), Seen(WM_RBUTTONDBLCLK, 0x82), Marker(),
                                           Seen(WM_MOUSEMOVE, 0x82), Seen(WM_RBUTTONUP, 0x80), Marker()));
}

TEST_F(MouseTest, DownUpAndMoveArePosted) {
    input::MouseDown(m_window, 1, 10, 20, 0);
    EXPECT_THAT(m_host.Take(), ElementsAre(Seen(WM_MOUSEMOVE, 0), Marker(), Seen(WM_MOUSEMOVE, 0),
                                           Seen(WM_LBUTTONDOWN, 1), Marker()));
    input::MouseUp(m_window, 1, 10, 20, 0);
    EXPECT_THAT(m_host.Take(), ElementsAre(Seen(WM_MOUSEMOVE, 1), Marker(), Seen(WM_MOUSEMOVE, 1),
                                           Seen(WM_LBUTTONUP, 0), Marker()));
    input::MouseMove(m_window, 10, 20, 0);
    EXPECT_THAT(m_host.Take(), ElementsAre(Seen(WM_MOUSEMOVE, MK_LBUTTON), Marker()));
}

TEST_F(MouseTest, RealInputMovesTheCursorAndPressesThere) {
    m_window.SetRealInput(true);
    input::DoubleClick(m_window, 1, 10, 20, 0x08);
    EXPECT_EQ(m_host.HeldWhenSeen(), MK_CONTROL);
    EXPECT_EQ(CursorInFrame().x, 10);
    EXPECT_EQ(CursorInFrame().y, 20);
    const auto pressed = TakeButtons();
    ASSERT_EQ(pressed.size(), 4u);
    EXPECT_EQ(pressed[0].message, UINT{WM_LBUTTONDOWN});
    EXPECT_EQ(pressed[0].lParam, kPoint);
    EXPECT_EQ(pressed[3].message, UINT{WM_LBUTTONUP});

    input::MouseDown(m_window, 3, 11, 20, 0);
    EXPECT_NE(GetAsyncKeyState(VK_MBUTTON), 0);
    input::MouseUp(m_window, 3, 11, 20, 0);
    input::Click(m_window, 4, 12, 20, 0); // a plain move
    EXPECT_EQ(CursorInFrame().x, 12);
    const auto released = TakeButtons();
    ASSERT_EQ(released.size(), 2u);
    EXPECT_EQ(released[0].message, UINT{WM_MBUTTONDOWN});
    EXPECT_EQ(released[1].message, UINT{WM_MBUTTONUP});

    input::MouseMove(m_window, 10, 20, 0);
    EXPECT_EQ(CursorInFrame().x, 10);
    const auto moves = m_host.Take();
    EXPECT_THAT(moves, testing::Contains(Seen(WM_MOUSEMOVE, MK_LBUTTON))) << "posted as well";
}

TEST_F(MouseTest, OnlyClickActivates) {
    m_host.Focus(m_host.Other());
    input::MouseMove(m_window, 10, 20, 0);
    EXPECT_EQ(GetForegroundWindow(), m_host.Other());
    input::Click(ghBaseWindow(m_host.Child()), 1, 10, 20, 0);
    EXPECT_EQ(GetForegroundWindow(), m_host.Frame());
    m_host.Take();

    EnableWindow(m_host.Child(), FALSE);
    ghBaseWindow child(m_host.Child());
    child.SetEnabledTimeout(0);
    input::Click(child, 1, 10, 20, 0);
    EXPECT_THAT(m_host.Take(), testing::SizeIs(6)) << "a disabled window gets the input all the same";
}

TEST_F(MouseTest, ModifiersAreReleasedWhenTheWindowGoes) {
    m_host.DestroyOn(WM_LBUTTONDOWN);
    input::Click(m_window, 1, 10, 20, 0x0C);
    EXPECT_FALSE(IsWindow(m_host.Frame()));
    EXPECT_EQ(m_host.HeldWhenSeen(), 0x0C);
    EXPECT_EQ(m_host.HeldNow(), 0);
}

TEST_F(MouseTest, WhatIsPressedIsReleasedWhenTheWindowGoes) {
    m_window.SetRealInput(true);
    m_host.DestroyOn(WM_LBUTTONDOWN);
    input::MouseDown(m_window, 1, 10, 20, 0);
    EXPECT_FALSE(IsWindow(m_host.Frame()));
    EXPECT_LT(GetAsyncKeyState(VK_LBUTTON), 0);
    input::MouseUp(m_window, 1, 10, 20, 0);
    EXPECT_GE(GetAsyncKeyState(VK_LBUTTON), 0);
}

TEST_F(MouseTest, NothingGoesToAWindowThatIsNotThere) {
    ghBaseWindow none;
    none.SetEnabledTimeout(0);
    none.SetSynchronization(false); // which would dispatch what came to this thread
    input::Click(none, 1, 10, 20, 0);
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_MOUSEFIRST, WM_MOUSELAST, PM_REMOVE)) << "to this thread";
    input::Click(none, 1, 10, 20, 0, true);
    POINT cursor{};
    GetCursorPos(&cursor);
    EXPECT_EQ(cursor.x, 900) << "to whatever is at that point of the screen";
}

TEST_F(MouseTest, TheCursorIsParked) {
    input::ParkCursor(m_window, true);
    EXPECT_EQ(CursorInFrame().x, 0);
    EXPECT_EQ(CursorInFrame().y, 0);

    const auto parkAway = [&](int x, int y) {
        m_host.Focus(m_host.Other());
        PutCursor(x, y);
        input::ParkCursor(m_window, false);
        POINT cursor{};
        GetCursorPos(&cursor);
        return std::pair{cursor.x, cursor.y};
    };
    EXPECT_EQ(parkAway(0, 300), std::pair(0L, 300L));
    EXPECT_EQ(GetForegroundWindow(), m_host.Other()) << "a cursor on the edge means no activation either";
    EXPECT_EQ(parkAway(300, 300), std::pair(0L, 0L));
    EXPECT_EQ(GetForegroundWindow(), m_host.Frame());
}

} // namespace
