// What a host sees when items of a list box are chosen, and texts of every length.
#include "controls/ghListBox.h"
#include "host/control_page.h"

namespace {

using support::Posted;
using support::Sent;
using testing::ElementsAre;
using testing::IsEmpty;
namespace ids = sample_host::ids;

RECT ItemRectangle(HWND list, int index) {
    RECT rectangle{};
    SendMessageA(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&rectangle));
    return rectangle;
}

class ListBoxTest : public support::ControlPage<ListBoxTest> {
public:
    static constexpr const char* kPage = "list-boxes";
    static constexpr const char* kName = "List boxes";

protected:
    static std::vector<support::Seen> Choices(HWND list) {
        return SeenBy(list, {LB_SETCURSEL, LB_SETSEL, LB_SETCARETINDEX, WM_LBUTTONDOWN, WM_LBUTTONUP});
    }
    static LPARAM ClickPoint(HWND list, int index) {
        const RECT item = ItemRectangle(list, index);
        return MAKELPARAM(item.left + 1, item.top + 1);
    }
};

TEST_F(ListBoxTest, AnItemIsClickedAtItsCornerAfterTheMessageOfItsKindOfList) {
    const HWND single = Control(ids::kListBox);
    EXPECT_TRUE(ghListBox(single).SelectItem(3));
    EXPECT_THAT(Choices(single), ElementsAre(Sent(LB_SETCURSEL, 3, 0),
                                             Posted(WM_LBUTTONDOWN, MK_LBUTTON, ClickPoint(single, 3)),
                                             Posted(WM_LBUTTONUP, 0, ClickPoint(single, 3))));

    const HWND multiple = Control(ids::kMultipleList);
    EXPECT_TRUE(ghListBox(multiple).SelectItem(9));
    EXPECT_THAT(Choices(multiple), ElementsAre(Sent(LB_SETCARETINDEX, 9, FALSE),
                                               Posted(WM_LBUTTONDOWN, MK_LBUTTON, ClickPoint(multiple, 9)),
                                               Posted(WM_LBUTTONUP, 0, ClickPoint(multiple, 9))));

    const HWND extended = Control(ids::kExtendedList);
    EXPECT_TRUE(ghListBox(extended).SelectItem(1));
    EXPECT_THAT(Choices(extended),
                ElementsAre(Sent(LB_SETCURSEL, 1, 0),
                            Posted(WM_LBUTTONDOWN, MK_LBUTTON | MK_CONTROL, ClickPoint(extended, 1)),
                            Posted(WM_LBUTTONUP, MK_CONTROL, ClickPoint(extended, 1))));
    EXPECT_TRUE(ghListBox(extended).IsSelected(1));
}

TEST_F(ListBoxTest, AnItemThatIsAsWantedOrNotThereIsNotClicked) {
    const HWND window = Control(ids::kMultipleList);
    const ghListBox list(window);
    SendMessageA(window, LB_SETSEL, TRUE, 2);
    Host().ClearLog();
    EXPECT_TRUE(list.SelectItem(2));
    EXPECT_TRUE(list.UnselectItem(5));
    for (const int index : {-1, 12, INT_MAX, INT_MIN}) {
        EXPECT_FALSE(list.SelectItem(index)) << index;
        EXPECT_FALSE(list.UnselectItem(index)) << index;
        EXPECT_TRUE(list.IsSelected(index)) << index; // LB_ERR is not 0
        EXPECT_EQ(list.GetItem(index), "") << index;
    }
    EXPECT_FALSE(list.UnselectItemByName("brass"));
    EXPECT_THAT(Choices(window), IsEmpty());
}

TEST_F(ListBoxTest, AnItemTakenOutOfASingleListStaysSelected) {
    const HWND window = Control(ids::kListBox);
    const ghListBox list(window);
    SendMessageA(window, LB_SETCURSEL, 4, 0);
    Host().ClearLog();
    EXPECT_TRUE(list.UnselectItemByName("R&D"));
    EXPECT_EQ(SeenBy(window, {WM_LBUTTONDOWN}).size(), 1u);
    EXPECT_EQ(list.SelectedItem(), 4);
}

// Longer texts: see the tests of the library that reads them. Wine damages a program that looks at the
// messages of its list box in ANSI, as this host does, when it is asked for one of more than 511 bytes.
TEST_F(ListBoxTest, TextsAreReadWhole) {
    const HWND window = Control(ids::kMultipleList);
    const ghListBox list(window);
    const std::string text(511, 'l');
    SendMessageA(window, LB_INSERTSTRING, 0, reinterpret_cast<LPARAM>(text.c_str()));
    EXPECT_EQ(list.GetItem(0), text);
    EXPECT_TRUE(list.SelectItemByName(text));
    EXPECT_TRUE(list.IsSelected(0));
    SendMessageA(window, LB_DELETESTRING, 0, 0);
    EXPECT_THAT(list.GetItem(11), testing::EndsWith(" alloy")); // what precedes is outside of the code page
}

TEST_F(ListBoxTest, TheMenuOpensInTheItemOrAtTheBottomLeft) {
    const HWND window = Control(ids::kListBox);
    const ghListBox list(window);
    SendMessageA(window, LB_SETCURSEL, 2, 0);
    for (const bool selected : {true, false}) {
        Host().ClearLog();
        const auto menu = list.ContextMenu(selected);
        ASSERT_NE(menu, nullptr);
        const RECT item = ItemRectangle(window, 2);
        RECT client{};
        GetClientRect(window, &client);
        POINT expected{1, client.bottom - 1};
        if (selected) {
            expected = {(item.left + item.right) / 2, (item.top + item.bottom) / 2};
        }
        EXPECT_THAT(SeenBy(window, {LB_SETCARETINDEX}),
                    ElementsAre(Sent(LB_SETCARETINDEX, selected ? 2 : 11, FALSE)));
        EXPECT_THAT(SeenBy(window, {WM_RBUTTONUP}),
                    ElementsAre(Posted(WM_RBUTTONUP, 0, MAKELPARAM(expected.x, expected.y))));
        menu->CloseMenu();
    }
}

TEST_F(ListBoxTest, ADestroyedOneIsEmpty) {
    const HWND window = Control(ids::kOwnerDrawnList);
    const ghListBox list(window);
    ASSERT_EQ(list.ItemsCount(), 12);
    SendMessageA(window, WM_CLOSE, 0, 0);
    ASSERT_FALSE(IsWindow(window));
    EXPECT_EQ(list.ItemsCount(), 0);
    EXPECT_FALSE(list.SelectItem(0));
    EXPECT_FALSE(list.SelectItemByName(""));
}

} // namespace
