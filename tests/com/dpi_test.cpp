// Scripts and programs of different DPI awareness on a scaled display: what a script says and is told is in
// the program's own pixels.
#include <gmock/gmock.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "com/driven_host.h"
#include "support/gui_thread.h"

namespace {

using sample_host::LogRecord;
using support::Bstr;
using support::ComPointer;
using support::Eventually;
using support::GuiThread;
using support::SampleHost;
using testing::ElementsAre;
namespace ids = sample_host::ids;

constexpr int kLeft = 1;         // mouse button
constexpr int kRealClick = 0x80; // among the keys of a click
constexpr int kAnyDescendant = 0x40;

class ThreadAwareness {
public:
    explicit ThreadAwareness(DPI_AWARENESS_CONTEXT awareness)
        : m_previous(SetThreadDpiAwarenessContext(awareness)) {}
    ~ThreadAwareness() { SetThreadDpiAwarenessContext(m_previous); }
    ThreadAwareness(const ThreadAwareness&) = delete;
    ThreadAwareness& operator=(const ThreadAwareness&) = delete;

private:
    DPI_AWARENESS_CONTEXT m_previous;
};

bool IsOfThread(DPI_AWARENESS_CONTEXT awareness) {
    return AreDpiAwarenessContextsEqual(GetThreadDpiAwarenessContext(), awareness) != FALSE;
}

struct Programs {
    const char* name;
    const char* hostSwitch;
    DPI_AWARENESS_CONTEXT host;
    DPI_AWARENESS_CONTEXT script;
};

struct Geometry {
    int left, top, width, height; // of the client area: both edge pixels counted

    bool operator==(const Geometry&) const = default;
    friend void PrintTo(const Geometry& geometry, std::ostream* out) {
        *out << geometry.left << "," << geometry.top << " " << geometry.width << "x" << geometry.height;
    }
};

// Wine looks for an unaware program's window under the pointer as if the window's pixels were the display's:
// real input finds it only near its top left corner, and that near the screen's. The points below are there.
class Dpi : public support::DrivenHost, public testing::WithParamInterface<Programs> {
protected:
    static void SetUpTestSuite() {
        support::Require(OleInitialize(nullptr), "OleInitialize");
        module = std::make_unique<support::BuiltModule>(support::BuiltModule::DefaultPath());
        Create<IGhosthand>(CLSID_Ghosthand)->put_AllowMouseBlocks(VARIANT_FALSE);
    }
    void SetUp() override {
        {
            const ThreadAwareness aware(DPI_AWARENESS_CONTEXT_SYSTEM_AWARE);
            ASSERT_GT(GetDpiForSystem(), 96u) << "the display is not scaled: run this by \"./test.sh dpi\"";
        }
        m_before = SetThreadDpiAwarenessContext(GetParam().script);
    }
    void TearDown() override {
        EXPECT_TRUE(IsOfThread(GetParam().script)) << "a call has left the thread in another awareness";
        SetThreadDpiAwarenessContext(m_before);
        host.reset();
    }

    // `last`: the name of the window that the page makes last.
    static void StartHost(const std::string& page, const std::string& last) {
        std::string arguments = "--dpi ";
        arguments += GetParam().hostSwitch;
        host = std::make_unique<SampleHost>(arguments + page);
        ASSERT_NE(host->WaitForWindow(last), nullptr);
        ASSERT_TRUE(
            AreDpiAwarenessContextsEqual(GetWindowDpiAwarenessContext(host->Frame()), GetParam().host));
        // An unaware program's desktop is small.
        ASSERT_EQ(MainWindow()->FitSize(800, 560), S_OK);
    }

    // As the program itself sees it.
    static Geometry Truth(HWND window) {
        const ThreadAwareness own(GetParam().host);
        RECT place, client;
        GetWindowRect(window, &place);
        GetClientRect(window, &client);
        return {place.left, place.top, client.right + 1, client.bottom + 1};
    }
    static Geometry Told(IBaseWindow& window) {
        LONG left = 0, top = 0, width = 0, height = 0;
        window.get_Left(&left);
        window.get_Top(&top);
        window.get_Width(&width);
        window.get_Height(&height);
        return {left, top, width, height};
    }

    // Where a window saw a button go down, be it for the second time.
    static std::vector<std::pair<int, int>> Presses(const std::string& window,
                                                    UINT message = WM_LBUTTONDOWN) {
        const UINT again = message + (WM_LBUTTONDBLCLK - WM_LBUTTONDOWN);
        const auto handle = reinterpret_cast<std::uintptr_t>(host->Window(window));
        std::vector<std::pair<int, int>> points;
        for (const LogRecord& record : host->Log().Records())
            if (record.window == handle && (record.message == message || record.message == again))
                points.emplace_back(LOWORD(record.lParam), HIWORD(record.lParam));
        return points;
    }
    // Of the same action by this script and by one of the program's own awareness.
    template <class Action>
    static void ExpectSamePresses(const std::string& window, UINT message, Action action) {
        host->ClearLog();
        action();
        const auto presses = Presses(window, message);
        EXPECT_FALSE(presses.empty());
        host->ClearLog();
        const ThreadAwareness own(GetParam().host);
        action();
        EXPECT_EQ(presses, Presses(window, message));
    }
    // Opens a menu, which has to have that item, and closes it.
    template <class Open>
    static void ExpectMenuWith(const wchar_t* item, Open open) {
        ComPointer<IControlBar> menu;
        ASSERT_EQ(open(menu.Receive()), S_OK);
        ComPointer<IControlBarItem> found;
        EXPECT_EQ(menu->GetItemByID(Bstr(item), 0, 0, 10, found.Receive()), S_OK) << item;
        menu->CloseMenu();
    }

private:
    DPI_AWARENESS_CONTEXT m_before = nullptr;
};

TEST_P(Dpi, SizesAndPlacesAreThoseThatTheProgramSees) {
    StartHost("", "document 3.1001");
    const auto main = MainWindow();
    EXPECT_EQ(Told(*main), Truth(host->Frame()));

    const Geometry before = Truth(host->Frame());
    ASSERT_EQ(main->position(31, 17), S_OK);
    EXPECT_EQ(Truth(host->Frame()), (Geometry{31, 17, before.width + 1, before.height + 1}));
    ASSERT_EQ(main->FitSize(701, 503), S_OK);
    EXPECT_EQ(Truth(host->Frame()), (Geometry{0, 0, 701, 503}));
    EXPECT_EQ(Told(*main), Truth(host->Frame()));

    ComPointer<IBaseWindow> edit;
    ASSERT_EQ(main->WindowByID(Bstr(L"document 3.1001"), 10, edit.Receive()), S_OK);
    EXPECT_EQ(Told(*edit), Truth(host->Window("document 3.1001")));
}

TEST_P(Dpi, ClicksHitTheirPixel) {
    StartHost("", "document 3.1001");
    ComPointer<IBaseWindow> edit;
    ASSERT_EQ(MainWindow()->WindowByID(Bstr(L"document 3.1001"), 10, edit.Receive()), S_OK);
    host->ClearLog();
    for (const int keys : {0, kRealClick}) {
        EXPECT_EQ(edit->Click(kLeft, 1, 1, keys), S_OK);
        EXPECT_EQ(edit->Click(kLeft, 37, 11, keys), S_OK);
        EXPECT_EQ(edit->Click(kLeft, 150, 60, keys), S_OK);
    }
    EXPECT_THAT(Presses("document 3.1001"),
                ElementsAre(std::pair(1, 1), std::pair(37, 11), std::pair(150, 60), std::pair(1, 1),
                            std::pair(37, 11), std::pair(150, 60)));
}

TEST_P(Dpi, ItemsOfTreesAndListsAreHit) {
    StartHost(" --page list-views --page trees", "Trees.1143");
    const auto main = MainWindow();
    ComPointer<ITreeControl> tree;
    ASSERT_EQ(main->TreeCtrl(ids::kPartsTree, kAnyDescendant, 10, tree.Receive()), S_OK);
    ComPointer<ITreeItem> item;
    ASSERT_EQ(tree->ItemByPath(Bstr(L"Box|Hole 2|Thread"), item.Receive()), S_OK);
    ExpectSamePresses("Trees.1140", WM_RBUTTONDOWN, [&] {
        ExpectMenuWith(L"Rename Thread", [&](IControlBar** menu) { return item->ContextMenu(menu); });
    });

    ComPointer<IListView> list;
    ASSERT_EQ(main->ListViewByID(Bstr(L"List views.1150"), 10, list.Receive()), S_OK);
    SendMessageA(host->Frame(), WM_COMMAND, ids::kPageListViews, 0); // in front
    ExpectSamePresses("List views.1150", WM_RBUTTONDOWN, [&] {
        VARIANT_BOOL selected = VARIANT_FALSE;
        EXPECT_EQ(list->SelectItem(1, &selected), S_OK);
        ExpectMenuWith(L"Open 1", [&](IControlBar** menu) { return list->ContextMenu(VARIANT_TRUE, menu); });
    });
}

TEST_P(Dpi, EntriesOfAToolBarsPopupAreHit) {
    if (GetParam().host == DPI_AWARENESS_CONTEXT_UNAWARE) {
        GTEST_SKIP() << "Wine does not see the popups of an unaware program under the pointer";
    }
    StartHost("", "document 3.1001");
    ComPointer<IControlBar> bar, popup;
    ASSERT_EQ(MainWindow()->Toolbar(Bstr(L"Draw"), 0, 0, 10, bar.Receive()), S_OK);
    ComPointer<IControlBarItem> arc, tangent;
    ASSERT_EQ(bar->GetItemByID(Bstr(L""), ids::kDrawArc, 0, 10, arc.Receive()), S_OK);
    ASSERT_EQ(arc->Expand(popup.Receive()), S_OK);
    ASSERT_EQ(popup->GetItemByID(Bstr(L""), ids::kDrawArcTangent, 0, 10, tangent.Receive()), S_OK);
    host->ClearLog();
    ASSERT_EQ(tangent->Click(kLeft, 1, 1), S_OK); // its first pixels
    const auto commands = [] { return host->Log().Records(WM_COMMAND, host->Frame()); };
    ASSERT_TRUE(Eventually([&] { return !commands().empty(); }));
    EXPECT_EQ(LOWORD(commands().front().wParam), ids::kDrawArcTangent);
}

TEST_P(Dpi, PointsRecordedInAViewAreHit) {
    StartHost(" --page cad", "CAD.1103");
    ComPointer<ICADView> view;
    ASSERT_EQ(MainWindow()->CADViewByID(Bstr(L"CAD.1101"), 10, view.Receive()), S_OK);
    ASSERT_EQ(view->SetCameraPosition(Bstr(L"yaw=0.00 pitch=0.00 zoom=1.000"), 300, 250), S_OK);
    const Geometry truth = Truth(host->Window("CAD.1101"));
    EXPECT_EQ(std::pair(truth.width, truth.height), std::pair(300, 250));
    host->ClearLog();
    EXPECT_EQ(view->Click(kLeft, 121, 20, 300, 250, 0), S_OK);
    EXPECT_EQ(view->Click(kLeft, 100, 150, 600, 500, 0), S_OK);
    EXPECT_THAT(Presses("CAD.1101"), ElementsAre(std::pair(121, 20), std::pair(50, 75)));
}

// What a window saw of a drag, in its own pixels.
struct Drag {
    POINT pressed{}, cursor{};
    RECT moving{};
} drag;

LRESULT CALLBACK DraggedProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_NCLBUTTONDOWN:
        drag.pressed = {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
        return 0;
    case WM_MOVING:
        drag.moving = *reinterpret_cast<const RECT*>(lParam);
        GetCursorPos(&drag.cursor);
        return TRUE;
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

HWND MakeWindow(const char* className, WNDPROC procedure) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = procedure;
    windowClass.lpszClassName = className;
    RegisterClassA(&windowClass);
    const HWND window = CreateWindowExA(0, className, className, WS_POPUP, 50, 50, 200, 100, nullptr, nullptr,
                                        nullptr, nullptr);
    ShowWindow(window, SW_SHOWNOACTIVATE);
    return window;
}

ComPointer<IBaseWindow> OwnWindow(IGhosthand& entry, const wchar_t* className) {
    ComPointer<IBaseWindow> window;
    support::Require(entry.MainWindow(Bstr(L"dpi_test"), nullptr, Bstr(className), 0, 10, window.Receive()),
                     "MainWindow");
    return window;
}

TEST_P(Dpi, ADragIsToldInTheWindowsOwnPixels) {
    const GuiThread thread;
    HWND window = nullptr;
    thread.Run([&] {
        const ThreadAwareness own(GetParam().host);
        window = MakeWindow("TestDragged", DraggedProcedure);
    });
    drag = {};
    const auto object = OwnWindow(*Create<IGhosthand>(CLSID_Ghosthand), L"TestDragged");
    ASSERT_EQ(object->PositionWithMovingMessage(121, 83), S_OK);
    const Geometry truth = Truth(window);
    EXPECT_EQ(std::pair(truth.left, truth.top), std::pair(121, 83));
    EXPECT_EQ(std::pair(drag.pressed.x, drag.pressed.y), std::pair(121L, 83L));
    EXPECT_EQ(std::pair(drag.cursor.x, drag.cursor.y), std::pair(121L, 83L));
    EXPECT_EQ(drag.moving.right - drag.moving.left, truth.width - 1);
    thread.Run([&] { DestroyWindow(window); });
    EXPECT_EQ(Told(*object), (Geometry{0, 0, 0, 0})); // and no failure
}

// A call that comes in while another one waits, in a window of the script's.
struct ComingIn {
    IBaseWindow* object = nullptr;
    bool sawItsOwn = false, keptItsOwn = false;
    LONG width = 0;
} comingIn;

LRESULT CALLBACK ComingInProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_APP) {
        const DPI_AWARENESS_CONTEXT own = GetWindowDpiAwarenessContext(window);
        comingIn.sawItsOwn = IsOfThread(own);
        comingIn.object->get_Width(&comingIn.width);
        comingIn.keptItsOwn = IsOfThread(own);
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

TEST_P(Dpi, CallsThatComeInDuringAWaitKeepApart) {
    StartHost("", "document 3.1001");
    const auto main = MainWindow();
    comingIn = {main.Get()};
    const HWND window = MakeWindow("TestComingIn", ComingInProcedure);
    PostMessageA(window, WM_APP, 0, 0);
    ComPointer<IBaseWindow> missing;
    EXPECT_EQ(main->ChildDialog(Bstr(L"no such dialog"), 0, 0, 1, missing.Receive()), S_FALSE);
    DestroyWindow(window);
    EXPECT_TRUE(comingIn.sawItsOwn);
    EXPECT_EQ(comingIn.width, Truth(host->Frame()).width);
    EXPECT_TRUE(comingIn.keptItsOwn);
}

INSTANTIATE_TEST_SUITE_P(
    , Dpi,
    testing::Values(Programs{"UnawareScript", "per-monitor", DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE,
                             DPI_AWARENESS_CONTEXT_UNAWARE},
                    Programs{"UnawareScriptSystemAwareHost", "system", DPI_AWARENESS_CONTEXT_SYSTEM_AWARE,
                             DPI_AWARENESS_CONTEXT_UNAWARE},
                    Programs{"UnawareHost", "unaware", DPI_AWARENESS_CONTEXT_UNAWARE,
                             DPI_AWARENESS_CONTEXT_PER_MONITOR_AWARE}),
    [](const auto& information) { return std::string(information.param.name); });

} // namespace
