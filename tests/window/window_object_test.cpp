// The window object with windows of another thread: what it reads, moves, sizes, posts.
#include "engine/ghBaseWindow.h"
#include "hostlink/module_instance.h"
#include "support/gui_thread.h"

#include <gmock/gmock.h>

#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Received {
    HWND window;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    bool operator==(const Received&) const = default;
};

std::mutex receivedLock;
std::vector<Received> received;
RECT movingRectangle;

LRESULT CALLBACK RecordingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_COMMAND || message == WM_APP || message == WM_NCLBUTTONDOWN || message == WM_MOVING) {
        const std::lock_guard lock(receivedLock);
        received.push_back({window, message, wParam, message == WM_MOVING ? 0 : lParam});
        if (message == WM_MOVING) {
            movingRectangle = *reinterpret_cast<const RECT*>(lParam);
        }
        return message == WM_APP ? static_cast<LRESULT>(0x123456789) : 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

std::vector<Received> TakeReceived() {
    const std::lock_guard lock(receivedLock);
    return std::exchange(received, {});
}

class WindowObject : public testing::Test {
protected:
    static void SetUpTestSuite() {
        hostlink::SetModuleInstance(GetModuleHandleA(nullptr));
        gui = std::make_unique<support::GuiThread>();
        gui->Run([] {
            for (const char* name : {"Recording", "Test AfxMDIFrame90"}) {
                WNDCLASSA windowClass{};
                windowClass.lpfnWndProc = RecordingProcedure;
                windowClass.lpszClassName = name;
                RegisterClassA(&windowClass);
            }
            top = Make("Recording", WS_OVERLAPPEDWINDOW | WS_VISIBLE, {10, 10, 400, 300}, nullptr, 0);
            edit = Make("Edit", WS_CHILD | WS_VISIBLE, {20, 30, 99, 49}, top, 0x12345);
        });
    }
    static void TearDownTestSuite() {
        gui->Run([] { DestroyWindow(top); });
        gui.reset();
    }
    // {x, y, width, height}
    static HWND Make(const char* className, DWORD style, const RECT& place, HWND parent, UINT_PTR id) {
        return CreateWindowExA(0, className, "", style, place.left, place.top, place.right, place.bottom,
                               parent, reinterpret_cast<HMENU>(id), nullptr, nullptr);
    }
    static ghBaseWindow Unsynchronised(HWND window) {
        ghBaseWindow object(window);
        object.SetSynchronization(false);
        return object;
    }
    // Lets the GUI thread take what was posted before.
    static void Settle() {
        std::promise<void> done;
        gui->Start([&] { done.set_value(); });
        done.get_future().wait();
    }

    static inline std::unique_ptr<support::GuiThread> gui;
    static inline HWND top, edit;
};

TEST_F(WindowObject, StartsWithDefaultsAndKeepsThemInRange) {
    ghBaseWindow none;
    EXPECT_EQ(none.ThreadId(), 0u);
    EXPECT_EQ(none.EnabledTimeout(), 5);
    EXPECT_TRUE(none.Synchronization());
    EXPECT_FALSE(none.RealInput());
    none.SetEnabledTimeout(-3);
    EXPECT_EQ(none.EnabledTimeout(), 0);
    none.SetEnabledTimeout(7);
    EXPECT_EQ(ghBaseWindow(none).EnabledTimeout(), 7);
    EXPECT_EQ(ghBaseWindow(top).ThreadId(), gui->Id());
}

TEST_F(WindowObject, AnswersAsTheSystemDoesForWindowsThatAreNot) {
    HWND gone = nullptr;
    gui->Run([&] {
        gone = Make("Recording", WS_CHILD, {0, 0, 5, 5}, top, 9);
        DestroyWindow(gone);
    });
    for (const HWND window : {HWND{}, gone}) {
        ghBaseWindow object = Unsynchronised(window);
        EXPECT_FALSE(object.Visible());
        EXPECT_FALSE(object.Enabled());
        EXPECT_EQ(object.Text(), "");
        EXPECT_EQ(object.Width(), 0);
        EXPECT_EQ(object.Height(), 0);
        EXPECT_EQ(object.Left(), 0);
        EXPECT_EQ(object.ControlID(), 0);
        EXPECT_FALSE(object.Parent().IsValid());
        EXPECT_FALSE(object.Command(1));
        EXPECT_FALSE(object.Post(WM_APP, 0, 0));
        EXPECT_FALSE(object.PostToFocus(WM_APP, 0, 0));
        EXPECT_EQ(object.Send(WM_APP, 0, 0), 0);
        EXPECT_FALSE(object.FitSize(10, 10));
        object.Position(1, 2);
        object.SetText("nothing", false);
        object.Close();
    }
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_COMMAND, WM_COMMAND, PM_REMOVE)); // not to ourselves
}

TEST_F(WindowObject, CountsBothEdgePixelsAndGrowsWithEachMove) {
    ghBaseWindow object = Unsynchronised(edit);
    EXPECT_EQ(object.Width(), 100);
    EXPECT_EQ(object.Height(), 50);
    object.Position(30, 40);
    EXPECT_EQ(object.Width(), 101);
    EXPECT_EQ(object.Height(), 51);
    POINT corner = {30, 40};
    ClientToScreen(top, &corner);
    EXPECT_EQ(object.Left(), corner.x);
    EXPECT_EQ(object.Top(), corner.y);
    EXPECT_EQ(object.Parent().Window(), top);
    EXPECT_EQ(object.ControlID(), 0x12345);
}

TEST_F(WindowObject, ShowsADragByTheCaption) {
    RECT before;
    GetWindowRect(top, &before);
    TakeReceived();
    Unsynchronised(top).PositionWithMovingMessage(25, 35);
    EXPECT_THAT(TakeReceived(), ElementsAre(Received{top, WM_NCLBUTTONDOWN, HTCAPTION, MAKELPARAM(25, 35)},
                                            Received{top, WM_MOVING, 0, 0}));
    EXPECT_EQ(movingRectangle.left, 25);
    EXPECT_EQ(movingRectangle.top, 35);
    EXPECT_EQ(movingRectangle.right, 25 + before.right - before.left + 1);
    EXPECT_EQ(movingRectangle.bottom, 35 + before.bottom - before.top + 1);
    POINT cursor;
    GetCursorPos(&cursor);
    EXPECT_EQ(cursor.x, 25);
    EXPECT_EQ(cursor.y, 35);
    EXPECT_EQ(Unsynchronised(top).Left(), 25);
}

TEST_F(WindowObject, TellsTheParentOfANewText) {
    gui->Run([] { SetWindowTextA(edit, "old"); });
    Settle();
    TakeReceived();
    Unsynchronised(edit).SetText("new", false);
    Settle();
    const auto handle = reinterpret_cast<LPARAM>(edit);
    const auto posted = TakeReceived();
    // The control itself notifies too, while its text is set; what comes last is ours.
    ASSERT_GE(posted.size(), 2u);
    EXPECT_THAT(std::vector(posted.end() - 2, posted.end()),
                ElementsAre(Received{top, WM_COMMAND, 0x04002345, handle},
                            Received{top, WM_COMMAND, 0x03002345, handle}));
    EXPECT_EQ(Unsynchronised(edit).Text(), "new");

    HWND label = nullptr;
    gui->Run([&] { label = Make("Static", WS_CHILD, {0, 0, 9, 9}, top, 7); });
    TakeReceived();
    Unsynchronised(label).SetText(std::string(1000, 'z'), false);
    Settle();
    EXPECT_THAT(TakeReceived(),
                ElementsAre(Received{top, WM_COMMAND, 0x04000007, reinterpret_cast<LPARAM>(label)},
                            Received{top, WM_COMMAND, 0x03000007, reinterpret_cast<LPARAM>(label)}));
    EXPECT_EQ(Unsynchronised(label).Text(), std::string(259, 'z'));

    Unsynchronised(top).SetText("caption", false); // no parent, nobody to tell
    Settle();
    EXPECT_THAT(TakeReceived(), IsEmpty());
}

TEST_F(WindowObject, PostsToTheFocusOrToItself) {
    HWND focused = nullptr;
    gui->Run([&] {
        focused = Make("Recording", WS_CHILD | WS_VISIBLE, {0, 0, 9, 9}, top, 8);
        SetForegroundWindow(top);
        SetFocus(focused);
    });
    TakeReceived();
    EXPECT_TRUE(ghBaseWindow(top).PostToFocus(WM_APP, 3, -1));
    gui->Run([] { SetFocus(nullptr); });
    EXPECT_TRUE(ghBaseWindow(top).PostToFocus(WM_APP, 4, 5));
    Settle();
    EXPECT_THAT(TakeReceived(), ElementsAre(Received{focused, WM_APP, 3, -1}, Received{top, WM_APP, 4, 5}));
    EXPECT_EQ(Unsynchronised(top).Send(WM_APP, 0, 0), 0x123456789);
}

class FitSize : public WindowObject {};

TEST_F(FitSize, SizesATopLevelWindowThatIsPlainMaximisedOrAnothersOwn) {
    gui->Run([] { ShowWindow(top, SW_MAXIMIZE); });
    EXPECT_TRUE(Unsynchronised(top).FitSize(321, 234));
    EXPECT_FALSE(IsZoomed(top));
    EXPECT_EQ(Unsynchronised(top).Width(), 321);
    EXPECT_EQ(Unsynchronised(top).Height(), 234);

    RECT untouched;
    GetWindowRect(top, &untouched);
    HWND dialog = nullptr;
    gui->Run([&] {
        dialog = Make("#32770", WS_POPUP | WS_CAPTION | WS_VISIBLE, {50, 50, 200, 100}, top, 0);
    });
    EXPECT_TRUE(Unsynchronised(dialog).FitSize(150, 140));
    RECT after;
    GetWindowRect(top, &after);
    EXPECT_TRUE(EqualRect(&untouched, &after));
    gui->Run([&] { DestroyWindow(dialog); });
}

// The child keeps its size whatever its parents do, so that the last step has to resize what is below the
// frame. The child touches the frame's right and bottom edges.
TEST_F(FitSize, SizesTheChildBelowAnMdiFrameAtItsFreeEdges) {
    HWND frame = nullptr, child = nullptr;
    gui->Run([&] {
        frame = Make("Test AfxMDIFrame90", WS_POPUP | WS_VISIBLE, {0, 0, 400, 300}, nullptr, 0);
        child = Make("Recording", WS_CHILD | WS_VISIBLE, {198, 97, 200, 200}, frame, 1);
    });
    EXPECT_TRUE(Unsynchronised(child).FitSize(151, 121));
    RECT place;
    GetWindowRect(child, &place);
    EXPECT_EQ(place.right, 398);
    EXPECT_EQ(place.bottom, 297);
    gui->Run([&] { DestroyWindow(frame); });
}

} // namespace
