// What a host sees when an item of a combo box is chosen.
#include "controls/ghComboBox.h"
#include "host/control_page.h"

namespace {

using support::Handle;
using support::Posted;
using support::Seen;
using support::Sent;
using testing::ElementsAre;
using testing::IsEmpty;
namespace ids = sample_host::ids;

class ComboBoxTest : public support::ControlPage<ComboBoxTest> {
public:
    static constexpr const char* kPage = "combo-boxes";
    static constexpr const char* kName = "Combo boxes";

protected:
    // Of the notifications only those that go out for a choice; the control sends others of its own.
    static std::vector<Seen> Choices(HWND window) {
        std::vector<Seen> choices = SeenBy(window, {WM_COMMAND});
        std::erase_if(choices, [](const Seen& seen) {
            const WORD code = HIWORD(seen.wParam);
            return code != CBN_SELENDOK && code != CBN_SELCHANGE;
        });
        return choices;
    }
    // Two panels deep in the page.
    static HWND QuietCombo() { return Host().Window("Combo boxes.1215.1216.1217"); }
};

WPARAM Notification(unsigned id, WORD code) {
    return MAKEWPARAM(id, code);
}

TEST_F(ComboBoxTest, AChoiceIsNotifiedAsAUsersIsWithoutTheMouse) {
    const HWND combo = Control(ids::kDropDownList);
    EXPECT_TRUE(ghComboBox(combo).SelectItem(2));
    EXPECT_THAT(SeenBy(combo, {CB_SETCURSEL, CB_SHOWDROPDOWN, WM_LBUTTONDOWN}),
                ElementsAre(Sent(CB_SETCURSEL, 2, 0)));
    EXPECT_THAT(
        Choices(Page()),
        ElementsAre(Posted(WM_COMMAND, Notification(ids::kDropDownList, CBN_SELENDOK), Handle(combo)),
                    Posted(WM_COMMAND, Notification(ids::kDropDownList, CBN_SELCHANGE), Handle(combo))));
}

TEST_F(ComboBoxTest, AnItemThatIsNotThereChangesNothing) {
    const ghComboBox combo(Control(ids::kDropDown));
    for (const int index : {-1, 6, INT_MAX, INT_MIN}) {
        EXPECT_FALSE(combo.SelectItem(index)) << index;
        EXPECT_EQ(combo.GetItem(index), "") << index;
    }
    EXPECT_FALSE(combo.SelectItemByName("Contour, hidden lines"));
    EXPECT_THAT(SeenBy(combo.Window(), {CB_SETCURSEL}), IsEmpty());
    EXPECT_THAT(Choices(Page()), IsEmpty());
}

TEST_F(ComboBoxTest, TheComboInsideACompositeOneIsChosenIn) {
    const HWND outer = Control(ids::kCompositeCombo);
    const HWND inner = GetWindow(outer, GW_CHILD);
    EXPECT_TRUE(ghComboBox(outer).SelectItemByName("Contour"));
    EXPECT_THAT(SeenBy(outer, {CB_SETCURSEL}), IsEmpty());
    EXPECT_THAT(SeenBy(inner, {CB_SETCURSEL}), ElementsAre(Sent(CB_SETCURSEL, 1, 0)));
    EXPECT_THAT(
        Choices(outer),
        ElementsAre(Posted(WM_COMMAND, Notification(ids::kCompositeCombo, CBN_SELENDOK), Handle(inner)),
                    Posted(WM_COMMAND, Notification(ids::kCompositeCombo, CBN_SELCHANGE), Handle(inner))));
}

TEST_F(ComboBoxTest, ParentsThatWantNoNotificationAreLeftOut) {
    const HWND combo = QuietCombo();
    EXPECT_TRUE(ghComboBox(combo).SelectItem(0));
    EXPECT_THAT(Choices(GetParent(combo)), IsEmpty());
    EXPECT_THAT(Choices(Control(ids::kQuietPanel)), IsEmpty());
    EXPECT_THAT(
        Choices(Page()),
        ElementsAre(Posted(WM_COMMAND, Notification(ids::kQuietCombo, CBN_SELENDOK), Handle(combo)),
                    Posted(WM_COMMAND, Notification(ids::kQuietCombo, CBN_SELCHANGE), Handle(combo))));
}

TEST_F(ComboBoxTest, TheOutermostAncestorIsNotifiedWhereNoneWantsTo) {
    const HWND combo = QuietCombo();
    std::vector<HWND> loud;
    for (HWND above = GetParent(combo); above != nullptr; above = GetParent(above)) {
        const LONG_PTR style = GetWindowLongPtrA(above, GWL_EXSTYLE);
        if ((style & WS_EX_NOPARENTNOTIFY) == 0) {
            loud.push_back(above);
            SetWindowLongPtrA(above, GWL_EXSTYLE, style | WS_EX_NOPARENTNOTIFY);
        }
    }
    EXPECT_TRUE(ghComboBox(combo).SelectItem(1));
    EXPECT_EQ(Choices(Host().Frame()).size(), 2u);
    for (const HWND window : loud) {
        SetWindowLongPtrA(window, GWL_EXSTYLE,
                          GetWindowLongPtrA(window, GWL_EXSTYLE) & ~LONG_PTR{WS_EX_NOPARENTNOTIFY});
    }
}

TEST_F(ComboBoxTest, ADestroyedOneIsEmpty) {
    const HWND window = Control(ids::kSimpleCombo);
    const ghComboBox combo(window);
    ASSERT_EQ(combo.ItemsCount(), 6);
    SendMessageA(window, WM_CLOSE, 0, 0);
    ASSERT_FALSE(IsWindow(window));
    EXPECT_EQ(combo.ItemsCount(), 0);
    EXPECT_FALSE(combo.SelectItem(0));
    EXPECT_EQ(combo.GetItem(0), "");
}

} // namespace
