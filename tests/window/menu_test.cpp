// Menus of the system and their items. Script and window share the process, because under Wine a menu
// handle is good in its own process only.
#include "controlbars/context_menu.h"
#include "controlbars/ghMenu.h"
#include "controlbars/ghMenuItem.h"
#include "controlbars/key_walk.h"
#include "hostlink/module_instance.h"
#include "support/gui_thread.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <atomic>
#include <future>
#include <mutex>
#include <vector>

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

enum Command : int { kOpen = 101, kOpenPlain, kSave, kPrint, kGrid = 201, kFit, kCopy = 301 };

// A window with the menu bar "&File", "&View" and an edit control that has the focus. It keeps what its menus
// choose, toggles the mark of "Grid" and opens a context menu.
class MenuTest : public testing::Test {
protected:
    static void SetUpTestSuite() { hostlink::SetModuleInstance(GetModuleHandleA(nullptr)); }

    void SetUp() override {
        current = this;
        m_thread.Run([this] { Build(); });
        SetForegroundWindow(m_window);
    }
    void TearDown() override {
        m_thread.Run([this] {
            EndMenu();
            DestroyWindow(m_window);
        });
        current = nullptr;
    }

    ghMenu Bar() const { return ghMenu(m_window); }
    std::vector<int> Commands() const {
        const std::scoped_lock lock(m_mutex);
        return m_commands;
    }
    int KeysInEdit() const { return m_keysInEdit; }
    bool IsMenuShown() const {
        GUITHREADINFO info{};
        info.cbSize = sizeof info;
        return GetGUIThreadInfo(m_thread.Id(), &info) && (info.flags & GUI_INMENUMODE) != 0;
    }

    support::GuiThread m_thread;
    HWND m_window = nullptr;
    HMENU m_file = nullptr;
    HMENU m_view = nullptr;

private:
    static inline MenuTest* current = nullptr;

    void Build() {
        m_file = CreatePopupMenu();
        AppendMenuA(m_file, MF_STRING, kOpen, "&Open...\tCtrl+O");
        AppendMenuA(m_file, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(m_file, MF_STRING, kOpenPlain, "Open...\tCtrl+O");
        AppendMenuA(m_file, MF_STRING | MF_GRAYED, kPrint, "Print");
        AppendMenuA(m_file, MF_STRING, kSave, "Save");
        const HMENU zoom = CreatePopupMenu();
        AppendMenuA(zoom, MF_STRING, kFit, "Fit");
        m_view = CreatePopupMenu();
        AppendMenuA(m_view, MF_STRING | MF_CHECKED, kGrid, "Grid");
        AppendMenuA(m_view, MF_POPUP, reinterpret_cast<UINT_PTR>(zoom), "Zoom");
        const HMENU bar = CreateMenu();
        AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(m_file), "&File");
        AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(m_view), "&View");

        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = Procedure;
        windowClass.lpszClassName = "MenuTestWindow";
        RegisterClassA(&windowClass);
        m_window = CreateWindowExA(0, "MenuTestWindow", "Menus", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50,
                                   400, 300, nullptr, bar, nullptr, nullptr);
        const HWND edit = CreateWindowExA(0, "Edit", "", WS_CHILD | WS_VISIBLE, 0, 200, 300, 20, m_window,
                                          reinterpret_cast<HMENU>(1001), nullptr, nullptr);
        SetWindowLongPtrA(edit, GWLP_USERDATA,
                          SetWindowLongPtrA(edit, GWLP_WNDPROC, reinterpret_cast<LONG_PTR>(EditProcedure)));
        SetFocus(edit);
    }

    void OpenContextMenu(LPARAM position) const {
        const HMENU menu = CreatePopupMenu();
        AppendMenuA(menu, MF_STRING | MF_GRAYED, kPrint, "Print");
        AppendMenuA(menu, MF_STRING, kCopy, "Copy");
        TrackPopupMenu(menu, 0, static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position)), 0,
                       m_window, nullptr);
        DestroyMenu(menu);
    }

    void OnCommand(int command) {
        const std::scoped_lock lock(m_mutex);
        m_commands.push_back(command);
        if (command == kGrid) {
            const bool marked = (GetMenuState(m_view, kGrid, MF_BYCOMMAND) & MF_CHECKED) != 0;
            CheckMenuItem(m_view, kGrid, marked ? MF_UNCHECKED : MF_CHECKED);
        }
    }

    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        if (message == WM_COMMAND && lParam == 0) {
            current->OnCommand(LOWORD(wParam));
        } else if (message == WM_CONTEXTMENU) {
            current->OpenContextMenu(lParam);
            return 0;
        }
        return DefWindowProcA(window, message, wParam, lParam);
    }

    static LRESULT CALLBACK EditProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        current->m_keysInEdit += message == WM_KEYDOWN;
        return CallWindowProcA(reinterpret_cast<WNDPROC>(GetWindowLongPtrA(window, GWLP_USERDATA)), window,
                               message, wParam, lParam);
    }

    mutable std::mutex m_mutex;
    std::vector<int> m_commands;
    std::atomic<int> m_keysInEdit = 0;
};

TEST_F(MenuTest, ItemsAreFoundByIdOrByTheBeginningOfTheirText) {
    const ghMenu file(m_window, m_file);
    const auto position = [&](const char* caption, int id) {
        return static_cast<const ghMenuItem&>(*file.GetItemByID(caption, id)).Position();
    };
    EXPECT_EQ(position("Open", 0), 2) << "the & is part of the text of the first item";
    EXPECT_EQ(position("&Open", -5), 0);
    EXPECT_EQ(position("open", 0), -1);
    EXPECT_EQ(position("Open", kSave), 4) << "an id decides alone";
    EXPECT_EQ(position("Open", 999), -1);
    EXPECT_EQ(position("", 0), -1);
}

TEST_F(MenuTest, ItemsTellTheirStateAndMissingOnesNone) {
    const ghMenu file(m_window, m_file);
    const ghMenu view(m_window, m_view);
    EXPECT_FALSE(file.GetItemByID("", kPrint)->Enabled());
    EXPECT_TRUE(file.GetItemByID("", kSave)->Enabled());
    EXPECT_FALSE(file.GetItemByID("", kSave)->Checked());
    EXPECT_TRUE(view.GetItem(0)->Checked());
    EXPECT_FALSE(view.GetItem(0)->HasSubItems());
    EXPECT_TRUE(view.GetItem(1)->HasSubItems());
    for (const int outside : {-1, 2}) {
        EXPECT_FALSE(view.GetItem(outside)->IsValid());
        EXPECT_FALSE(view.GetItem(outside)->Enabled());
    }
    EXPECT_FALSE(ghMenu(m_window, nullptr).IsValid());
    EXPECT_FALSE(ghMenu(GetDlgItem(m_window, 1001)).IsValid()) << "a child's id is no menu";
    EXPECT_FALSE(ghMenu(nullptr).GetItem(0)->IsValid());

    const auto item = file.GetItem(0);
    DeleteMenu(m_file, 0, MF_BYPOSITION);
    EXPECT_EQ(file.ItemsCount(), 4);
    item->SetEnabledTimeout(-3);
    EXPECT_EQ(item->EnabledTimeout(), 0);
    EXPECT_EQ(file.EnabledTimeout(), 5) << "an item has a timeout of its own";
}

TEST_F(MenuTest, AnItemOfASubmenuIsChosenWithTheKeyboard) {
    const auto view = Bar().GetItemByID("&View", 0)->Expand();
    ASSERT_NE(view, nullptr);
    EXPECT_TRUE(IsMenuShown());
    const auto zoom = view->GetItemByID("Zoom", 0)->Expand();
    ASSERT_TRUE(zoom->IsValid());
    zoom->GetItemByID("Fit", 0)->Click(1, 1, 1);
    EXPECT_THAT(Commands(), ElementsAre(kFit));
    EXPECT_FALSE(IsMenuShown());
    EXPECT_EQ(KeysInEdit(), 0);
    EXPECT_FALSE(Bar().GetItem(0)->Expand()->GetItemByID("Save", 0)->Expand()->IsValid());
    EXPECT_THAT(Commands(), ElementsAre(kFit, kSave)) << "an item without a submenu is chosen all the same";
}

TEST_F(MenuTest, AMarkIsSetByAClickAndOnlyIfItDiffers) {
    const auto setGrid = [&](bool checked) {
        const auto view = Bar().GetItem(1)->Expand();
        view->GetItem(0)->SetChecked(checked);
        EXPECT_FALSE(IsMenuShown());
        return view->GetItem(0)->Checked();
    };
    EXPECT_TRUE(setGrid(true));
    EXPECT_THAT(Commands(), IsEmpty());
    EXPECT_FALSE(setGrid(false));
    EXPECT_THAT(Commands(), ElementsAre(kGrid));
    EXPECT_TRUE(setGrid(true));
    EXPECT_EQ(KeysInEdit(), 0);
}

TEST_F(MenuTest, AContextMenuIsCaughtFoundAgainAndClosed) {
    const ghBaseWindow window(m_window);
    EXPECT_EQ(controlbars::FindCurrentContextMenu(window), nullptr);
    auto menu = controlbars::OpenContextMenu(window, 20, 20);
    ASSERT_NE(menu, nullptr);
    EXPECT_EQ(menu->ItemsCount(), 2);
    const auto found = controlbars::FindCurrentContextMenu(window);
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->ItemsCount(), 2);
    const support::GuiThread other;
    HWND elsewhere = nullptr;
    other.Run([&] {
        elsewhere =
            CreateWindowExA(0, "Static", "", WS_POPUP, 0, 0, 1, 1, nullptr, nullptr, nullptr, nullptr);
    });
    EXPECT_EQ(controlbars::FindCurrentContextMenu(ghBaseWindow(elsewhere)), nullptr)
        << "another thread's menu";

    menu->CloseMenu();
    EXPECT_FALSE(IsMenuShown());
    EXPECT_FALSE(menu->GetItem(1)->IsValid());

    controlbars::OpenContextMenu(window, 20, 20)->GetItemByID("Copy", 0)->Click(1, 1, 1);
    EXPECT_THAT(Commands(), ElementsAre(kCopy));
}

TEST_F(MenuTest, AMenuThatIsNotOpenGetsNoKeys) {
    EXPECT_EQ(ghMenu(m_window, m_view).GetItem(1)->Expand(), nullptr);
    EXPECT_EQ(KeysInEdit(), 0);
    EXPECT_FALSE(IsMenuShown());
    EXPECT_THAT(Commands(), IsEmpty());
}

TEST_F(MenuTest, AnotherItemIsChosenWhileMenusBeyondItAreOpen) {
    const auto view = Bar().GetItem(1)->Expand();
    ASSERT_NE(view->GetItemByID("Zoom", 0)->Expand(), nullptr);
    view->GetItemByID("Grid", 0)->Click(1, 1, 1);
    EXPECT_THAT(Commands(), ElementsAre(kGrid));

    ASSERT_NE(Bar().GetItem(0)->Expand(), nullptr);
    Bar().GetItem(1)->Expand()->GetItemByID("Grid", 0)->Click(1, 1, 1);
    EXPECT_THAT(Commands(), ElementsAre(kGrid, kGrid)) << "the key that enters the menu bar leaves it, too";
    EXPECT_EQ(KeysInEdit(), 0);
}

// A host that takes longer for a key than the pause between two.
TEST_F(MenuTest, ASlowHostIsWaitedForOnceItWasOvershot) {
    static std::atomic<int> handled;
    handled = 0;
    HHOOK hook = nullptr;
    m_thread.Run([&] {
        const HOOKPROC slow = [](int code, WPARAM removed, LPARAM lParam) -> LRESULT {
            const auto& message = *reinterpret_cast<const MSG*>(lParam);
            if (code >= 0 && removed == PM_REMOVE && message.message == WM_KEYDOWN) {
                Sleep(40);
                ++handled;
            }
            return CallNextHookEx(nullptr, code, removed, lParam);
        };
        hook = SetWindowsHookExA(WH_GETMESSAGE, slow, nullptr, GetCurrentThreadId());
    });
    using controlbars::WalkState;
    std::size_t looks = 0;
    int pressed = 0;
    const auto look = [&] {
        constexpr WalkState kSeen[] = {
            WalkState::NotOpen, WalkState::NotYet, WalkState::NotYet, WalkState::NotYet,
            WalkState::Reached, // on the way: keys are left
            WalkState::NotYet,  WalkState::NotYet, WalkState::NotYet, WalkState::Reached};
        const WalkState state = kSeen[std::min(looks++, std::size(kSeen) - 1)];
        if (looks > 5) {
            EXPECT_EQ(handled, pressed) << looks;
        }
        pressed += state == WalkState::NotYet;
        return state;
    };
    EXPECT_TRUE(controlbars::WalkWithKey(ghBaseWindow(m_window), VK_LEFT, 1, 100, look));
    EXPECT_EQ(pressed, 6);

    // A whole lap without meeting it is no better.
    looks = 0;
    pressed = 0;
    handled = 0;
    const auto neverMet = [&] {
        ++looks;
        if (pressed > 4) {
            EXPECT_EQ(handled, pressed);
        }
        pressed += looks < 10;
        return looks < 10 ? WalkState::NotYet : WalkState::Gone;
    };
    EXPECT_FALSE(controlbars::WalkWithKey(ghBaseWindow(m_window), VK_LEFT, 1, 3, neverMet));
    UnhookWindowsHookEx(hook);
}

// A popup with a bar of the professional kind. With a caption it is a bar that floats.
class PopupBar {
public:
    PopupBar(const support::GuiThread& thread, HWND owner, DWORD style) : m_thread(thread) {
        m_thread.Run([&] {
            for (const char* name : {"AfxTest", "BCGPToolBarTest"}) {
                WNDCLASSA windowClass{};
                windowClass.lpfnWndProc = Procedure;
                windowClass.lpszClassName = name;
                RegisterClassA(&windowClass);
            }
            m_popup = CreateWindowExA(WS_EX_NOACTIVATE, "AfxTest", "", WS_POPUP | WS_VISIBLE | style, 300, 60,
                                      80, 80, owner, nullptr, nullptr, nullptr);
            m_bar = CreateWindowExA(0, "BCGPToolBarTest", "", WS_CHILD | WS_VISIBLE, 0, 0, 60, 20, m_popup,
                                    nullptr, nullptr, nullptr);
        });
    }
    ~PopupBar() {
        m_thread.Run([this] { DestroyWindow(m_popup); });
    }
    PopupBar(const PopupBar&) = delete;
    PopupBar& operator=(const PopupBar&) = delete;

    HWND Bar() const { return m_bar; }
    int Keys() const { return s_keys; }

private:
    static LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
        s_keys += message == WM_KEYDOWN;
        return DefWindowProcA(window, message, wParam, lParam);
    }

    static inline std::atomic<int> s_keys = 0;
    const support::GuiThread& m_thread;
    HWND m_popup = nullptr;
    HWND m_bar = nullptr;
};

TEST_F(MenuTest, ABarThatFloatsIsNoContextMenuAndAPopupThatStaysOpenIsLeft) {
    const ghBaseWindow window(m_window);
    {
        const PopupBar floating(m_thread, m_window, WS_CAPTION);
        EXPECT_EQ(controlbars::FindCurrentContextMenu(window), nullptr);
    }
    const PopupBar popup(m_thread, m_window, 0);
    ASSERT_NE(controlbars::FindCurrentContextMenu(window), nullptr);
    ghMenu(m_window).CloseMenu();
    EXPECT_LE(KeysInEdit() + popup.Keys(), 5) << "a few Escapes, no more";
    EXPECT_GE(KeysInEdit() + popup.Keys(), 1);
    EXPECT_TRUE(IsWindow(popup.Bar()));
}

TEST_F(MenuTest, APopupIsFoundThatADialogOnTheWayOwns) {
    HWND dialog = nullptr;
    HWND child = nullptr;
    m_thread.Run([&] {
        dialog = CreateWindowExA(WS_EX_NOACTIVATE, "Static", "", WS_POPUP | WS_VISIBLE, 200, 200, 50, 50,
                                 m_window, nullptr, nullptr, nullptr);
        child = CreateWindowExA(0, "Static", "", WS_CHILD, 0, 0, 1, 1, dialog, nullptr, nullptr, nullptr);
    });
    const PopupBar popup(m_thread, dialog, 0);
    const auto found = controlbars::FindCurrentContextMenu(ghBaseWindow(child));
    ASSERT_NE(found, nullptr);
    EXPECT_EQ(found->Window(), popup.Bar());
}

class MenuWalkTest : public MenuTest {
protected:
    // Starts to choose an item that the keys never reach, and waits until it is at it.
    std::future<void> StartWalk() {
        const auto menu = Bar().GetItem(0)->Expand();
        auto walk = std::async(std::launch::async, [item = menu->GetItem(1)] { item->Click(1, 1, 1); });
        EXPECT_EQ(walk.wait_for(std::chrono::milliseconds(300)), std::future_status::timeout);
        return walk;
    }
    static bool Ends(const std::future<void>& walk) {
        return walk.wait_for(std::chrono::seconds(30)) == std::future_status::ready;
    }
};

TEST_F(MenuWalkTest, EndsWithTheMenu) {
    const auto walk = StartWalk();
    m_thread.Run([this] { DestroyMenu(m_file); });
    EXPECT_TRUE(Ends(walk));
}

TEST_F(MenuWalkTest, EndsWithTheWindow) {
    const auto walk = StartWalk();
    m_thread.Run([this] { DestroyWindow(m_window); });
    EXPECT_TRUE(Ends(walk));
}

TEST_F(MenuWalkTest, EndsSomeTimeAfterTheMenuWasClosed) {
    const auto walk = StartWalk();
    m_thread.Run([] { EndMenu(); });
    EXPECT_TRUE(Ends(walk));
    EXPECT_THAT(Commands(), IsEmpty());
}

} // namespace
