// What a host sees when a tab is chosen.
#include "controls/ghTabControl.h"
#include "host/control_page.h"
#include "hostlink/remote_send.h"

#include <commctrl.h>

namespace {

using support::Posted;
using support::Sent;
using testing::ElementsAre;
using testing::IsEmpty;
namespace ids = sample_host::ids;

class TabControlTest : public support::ControlPage<TabControlTest> {
public:
    static constexpr const char* kPage = "tabs";
    static constexpr const char* kName = "Tabs";

protected:
    static RECT TabRectangle(const ghTabControl& tabs, int index) {
        RECT rectangle{};
        hostlink::RemoteSend(tabs.Host(), TCM_GETITEMRECT, static_cast<WPARAM>(index),
                             hostlink::AsBlock(rectangle));
        return rectangle;
    }
};

TEST_F(TabControlTest, ATabIsFocusedAndClickedInTheMiddleOfItsTopEdge) {
    const ghTabControl tabs(Control(ids::kTabRows));
    ASSERT_TRUE(tabs.SelectItem(0) && tabs.SelectItem(13)); // in another row
    Host().ClearLog();
    EXPECT_TRUE(tabs.SelectItem(2));
    const RECT tab = TabRectangle(tabs, 2);
    const LPARAM point = MAKELPARAM((tab.left + tab.right) / 2, tab.top + 1);
    EXPECT_THAT(SeenBy(tabs.Window(), {TCM_SETCURFOCUS, TCM_SETCURSEL, WM_LBUTTONDOWN}),
                ElementsAre(Sent(TCM_SETCURFOCUS, 2, 0), Posted(WM_LBUTTONDOWN, MK_LBUTTON, point)));
    EXPECT_EQ(tabs.SelectedItem(), 2);
}

TEST_F(TabControlTest, TheSelectedTabAndOneThatIsNotThereAreLeftAlone) {
    const ghTabControl tabs(Control(ids::kTabs));
    const int selected = tabs.SelectedItem();
    EXPECT_TRUE(tabs.SelectItem(selected));
    for (const int index : {-1, 6, INT_MAX, INT_MIN}) {
        EXPECT_FALSE(tabs.SelectItem(index)) << index;
        EXPECT_EQ(tabs.GetItem(index), "") << index;
    }
    EXPECT_FALSE(tabs.SelectItemByName("R&D ")); // longer than the tab's
    EXPECT_THAT(SeenBy(tabs.Window(), {TCM_SETCURFOCUS, WM_LBUTTONDOWN, WM_SETFOCUS}), IsEmpty());
}

TEST_F(TabControlTest, TheMenuOpensInTheTabOrAtTheBottomRight) {
    const ghTabControl tabs(Control(ids::kTabs));
    ASSERT_TRUE(tabs.SelectItem(1));
    for (const bool selected : {true, false}) {
        Host().ClearLog();
        const auto menu = tabs.ContextMenu(selected);
        ASSERT_NE(menu, nullptr);
        const RECT tab = TabRectangle(tabs, 1);
        RECT client{};
        GetClientRect(tabs.Window(), &client);
        POINT expected{client.right - 1, client.bottom - 1};
        if (selected) {
            expected = {(tab.left + tab.right) / 2, (tab.top + tab.bottom) / 2};
        }
        EXPECT_EQ(SeenBy(tabs.Window(), {TCM_SETCURFOCUS}).size(), selected ? 1u : 0u);
        ClientToScreen(tabs.Window(), &expected);
        // The page gets it from the tab control, or itself where there is no tab.
        const auto seen = SeenBy(Page(), {WM_CONTEXTMENU});
        ASSERT_EQ(seen.size(), 1u);
        EXPECT_EQ(seen[0].lParam, MAKELPARAM(expected.x, expected.y));
        menu->CloseMenu();
    }
}

TEST_F(TabControlTest, ADestroyedOneIsEmpty) {
    const ghTabControl tabs(Control(ids::kLongTabs));
    ASSERT_EQ(tabs.ItemsCount(), 4);
    SendMessageA(tabs.Window(), WM_CLOSE, 0, 0);
    EXPECT_EQ(tabs.ItemsCount(), 0);
    EXPECT_EQ(tabs.GetItem(0), "");
    EXPECT_FALSE(tabs.SelectItemByName(""));
}

} // namespace
