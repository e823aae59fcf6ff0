// Items of menus below a point. The window shares the process, because under Wine a menu handle is good in
// its own process only.
#include "explain/item_at_point.h"

#include "controlbars/popup_menu.h"
#include "support/gui_thread.h"

#include <gmock/gmock.h>

namespace {

using explain::Argument;
using explain::Call;
using explain::Step;
using testing::ElementsAre;

enum Command : int { kOpen = 101, kClose, kTwin, kFit = 201, kCopy = 301 };

Step MakeStep(const char* member, std::vector<Argument> arguments = {}) {
    return {member, std::move(arguments)};
}
Argument Text(const char* text) {
    return std::string(text);
}
Argument Number(int number) {
    return std::int64_t{number};
}

// A window with the menu bar "&File", "&View", "&View", and a context menu.
class MenuItemAtPoint : public testing::Test {
protected:
    void SetUp() override {
        m_thread.Run([this] { Build(); });
    }
    void TearDown() override {
        m_thread.Run([this] {
            EndMenu();
            DestroyWindow(m_window);
            DestroyMenu(m_context);
        });
    }

    // Shows a menu and waits for its window.
    HWND Show(HMENU menu) {
        m_thread.Start([this, menu] { TrackPopupMenu(menu, 0, 600, 100, 0, m_window, nullptr); });
        return WaitForPopup(menu);
    }
    HWND WaitForPopup(HMENU menu) const {
        for (int attempts = 0; attempts < 500; ++attempts, Sleep(20)) {
            const HWND popup = controlbars::FindPopupMenu(m_thread.Id());
            if (popup != nullptr && controlbars::MenuShownBy(popup) == menu) {
                return popup;
            }
        }
        return nullptr;
    }
    // The item in the middle of one of the menu's items.
    static std::optional<explain::ItemAtPoint> ItemIn(HWND window, HMENU menu, UINT position) {
        RECT area{};
        EXPECT_TRUE(GetMenuItemRect(window, menu, position, &area));
        const auto item =
            explain::ItemOf(window, {(area.left + area.right) / 2, (area.top + area.bottom) / 2});
        EXPECT_TRUE(!item || EqualRect(&item->rectangle, &area));
        return item;
    }

    support::GuiThread m_thread;
    HWND m_window = nullptr;
    HMENU m_bar = nullptr;
    HMENU m_file = nullptr;
    HMENU m_context = nullptr;
    HMENU m_order = nullptr;

private:
    void Build() {
        m_file = CreatePopupMenu();
        AppendMenuA(m_file, MF_STRING, kOpen, "&Open...\tCtrl+O");
        AppendMenuA(m_file, MF_SEPARATOR, 0, nullptr);
        AppendMenuA(m_file, MF_STRING, kTwin, "Twin");
        AppendMenuA(m_file, MF_STRING, kTwin, "Twin");
        const HMENU view = CreatePopupMenu();
        AppendMenuA(view, MF_STRING, kFit, "Fit");
        const HMENU second = CreatePopupMenu();
        AppendMenuA(second, MF_STRING, kFit, "Fit");
        m_bar = CreateMenu();
        AppendMenuA(m_bar, MF_POPUP, reinterpret_cast<UINT_PTR>(m_file), "&File");
        AppendMenuA(m_bar, MF_POPUP, reinterpret_cast<UINT_PTR>(view), "&View");
        AppendMenuA(m_bar, MF_POPUP, reinterpret_cast<UINT_PTR>(second), "&View");
        m_order = CreatePopupMenu();
        AppendMenuA(m_order, MF_STRING, kCopy + 1, "To &Front");
        m_context = CreatePopupMenu();
        AppendMenuA(m_context, MF_STRING, kCopy, "&Copy");
        AppendMenuA(m_context, MF_POPUP, reinterpret_cast<UINT_PTR>(m_order), "&Order");
        m_window = CreateWindowExA(0, "#32770", "Menus", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 50, 50, 400, 300,
                                   nullptr, m_bar, nullptr, nullptr);
    }
};

TEST_F(MenuItemAtPoint, OfTheMenuBar) {
    const auto file = ItemIn(m_window, m_bar, 0);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->text, "&File");
    EXPECT_EQ(file->window, m_window);
    EXPECT_THAT(file->steps, ElementsAre(MakeStep("MainMenu"), MakeStep("GetItemByID", {Text("&File")})));
    const auto namesake = ItemIn(m_window, m_bar, 2);
    ASSERT_TRUE(namesake);
    EXPECT_THAT(namesake->steps, ElementsAre(MakeStep("MainMenu"), MakeStep("GetItem", {Number(2)})));
    EXPECT_FALSE(explain::ItemOf(m_window, {200, 250})) << "in the window";
}

TEST_F(MenuItemAtPoint, OfAMenuThatTheBarOpens) {
    const HWND popup = Show(m_file);
    ASSERT_NE(popup, nullptr);
    const auto open = ItemIn(popup, m_file, 0);
    ASSERT_TRUE(open);
    EXPECT_EQ(open->window, m_window);
    EXPECT_THAT(open->steps,
                ElementsAre(MakeStep("MainMenu"), MakeStep("GetItemByID", {Text("&File")}),
                            MakeStep("Expand"), MakeStep("GetItemByID", {Text("&Open..."), Number(kOpen)})));
    EXPECT_FALSE(ItemIn(popup, m_file, 1)) << "a separator";
    const auto twin = ItemIn(popup, m_file, 3);
    ASSERT_TRUE(twin);
    EXPECT_EQ(twin->steps.back(), MakeStep("GetItem", {Number(3)}));
}

TEST_F(MenuItemAtPoint, OfAContextMenuAndItsSubmenu) {
    const HWND popup = Show(m_context);
    ASSERT_NE(popup, nullptr);
    RECT area{};
    GetMenuItemRect(popup, m_context, 0, &area);
    EXPECT_EQ(explain::WindowAtPoint({area.left + 5, area.top + 5}), popup);
    const auto copy = ItemIn(popup, m_context, 0);
    ASSERT_TRUE(copy);
    EXPECT_THAT(copy->steps, ElementsAre(MakeStep("CurrentContextMenu"),
                                         MakeStep("GetItemByID", {Text("&Copy"), Number(kCopy)})));
    for (const int key : {VK_DOWN, VK_DOWN, VK_RIGHT}) {
        PostMessageA(m_window, WM_KEYDOWN, static_cast<WPARAM>(key), 0);
    }
    const HWND submenu = WaitForPopup(m_order);
    ASSERT_NE(submenu, nullptr);
    const auto front = ItemIn(submenu, m_order, 0);
    ASSERT_TRUE(front);
    EXPECT_THAT(front->steps, ElementsAre(MakeStep("CurrentContextMenu"),
                                          MakeStep("GetItemByID", {Text("&Order")}), MakeStep("Expand"),
                                          MakeStep("GetItemByID", {Text("To &Front"), Number(kCopy + 1)})));
    const auto below = ItemIn(popup, m_context, 0);
    ASSERT_TRUE(below);
    EXPECT_EQ(below->steps, copy->steps) << "also below its submenu";
}

} // namespace
