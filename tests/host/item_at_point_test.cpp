// What lies below a point of another program's controls, and the steps that lead to it: the adapters, which
// scripts use, go the steps back.
#include "explain/item_at_point.h"

#include "controlbars/context_menu.h"
#include "controlbars/ghToolbarButton.h"
#include "controls/ghComboBox.h"
#include "controls/ghGroupCombo.h"
#include "controls/ghListBox.h"
#include "controls/ghListView.h"
#include "controls/ghOptionTree.h"
#include "controls/ghTabControl.h"
#include "controls/ghTreeItem.h"
#include "controls/item_search.h"
#include "controls/list_view_messages.h"
#include "host/control_page.h"
#include "hostlink/registered_messages.h"
#include "hostlink/remote_send.h"
#include "hostlink/window_kind.h"

namespace {

using explain::Call;
using explain::ItemAtPoint;
using explain::Step;
using support::SampleHost;
using testing::ElementsAre;
using testing::IsEmpty;
namespace ids = sample_host::ids;

// As a test writes it, and reads it in a failure: "SelectItem(3)".
std::string Written(const Call& call) {
    std::string text;
    for (const Step& step : call) {
        text.append(text.empty() ? "" : ".").append(step.member).append("(");
        for (const explain::Argument& argument : step.arguments) {
            text += &argument == &step.arguments.front() ? "" : ", ";
            if (const auto* number = std::get_if<std::int64_t>(&argument)) {
                text += std::to_string(*number);
            } else {
                text.append("'").append(std::get<std::string>(argument)).append("'");
            }
        }
        text += ")";
    }
    return text;
}

POINT Middle(HWND control, const RECT& client) {
    POINT middle{(client.left + client.right) / 2, (client.top + client.bottom) / 2};
    ClientToScreen(control, &middle);
    return middle;
}

RECT RectangleOf(HWND control, UINT message, int index, RECT request = {}) {
    hostlink::RemoteSend({control, GetWindowThreadProcessId(control, nullptr)}, message,
                         static_cast<WPARAM>(index), hostlink::AsBlock(request));
    return request;
}

class ItemAtPointTest : public support::ControlPage<ItemAtPointTest> {
public:
    static constexpr const char* kPage = "trees --page list-views --page list-boxes --page combo-boxes "
                                         "--page tabs --page context-menus --page options --page large-data "
                                         "--page cad";
    static constexpr const char* kName = "CAD";

protected:
    static HWND Window(std::string page, unsigned id) {
        return Host().WaitForWindow(page.append(".").append(std::to_string(id)));
    }
    // The item with that rectangle in client coordinates, found in its middle. Fails unless the item found
    // lies there.
    static ItemAtPoint ItemIn(HWND control, const RECT& client) {
        const POINT middle = Middle(control, client);
        const auto item = explain::ItemOf(control, middle);
        if (!item) {
            ADD_FAILURE() << "no item at " << middle.x << ", " << middle.y;
            return {};
        }
        EXPECT_TRUE(PtInRect(&item->rectangle, middle)) << item->text;
        return *item;
    }
    static bool HasItemAt(HWND control, int x, int y) {
        POINT point{x, y};
        ClientToScreen(control, &point);
        return explain::ItemOf(control, point).has_value();
    }
    // The index that a list's step means.
    template <class List>
    static int IndexOf(const List& list, const Call& call) {
        if (call.size() != 1 || call[0].arguments.size() != 1) {
            return -1;
        }
        const explain::Argument& argument = call[0].arguments[0];
        const auto* index = std::get_if<std::int64_t>(&argument);
        return index != nullptr ? static_cast<int>(*index)
                                : controls::FirstItemWithPrefix(list, Ansi(std::get<std::string>(argument)));
    }
    // In the code page of the tests' host.
    static std::string Ansi(const std::string& utf8) {
        wchar_t wide[1024];
        char ansi[1024];
        MultiByteToWideChar(CP_UTF8, 0, utf8.c_str(), -1, wide, 1024);
        WideCharToMultiByte(CP_ACP, 0, wide, -1, ansi, 1024, nullptr, nullptr);
        return ansi;
    }
};

HTREEITEM Follow(const ghTreeControl& tree, const ItemAtPoint& item) {
    if (item.steps.size() != 1) {
        return nullptr;
    }
    const std::string path = std::get<std::string>(item.steps[0].arguments.at(0));
    const auto found =
        item.steps[0].member == "ItemByPath" ? tree.ItemByPath(path) : tree.ItemByNumPath(path);
    return found ? found->Item() : nullptr;
}

TEST_F(ItemAtPointTest, ATreeItemIsReachedByNamesUntilANamesakeComesBeforeIt) {
    const ghTreeControl tree(Window("Trees", ids::kPartsTree));
    for (const char* path : {"1", "1.2", "1.4"}) {
        controls::ExpandItem(tree.Window(), tree.ItemByNumPath(path)->Item(), TVE_EXPAND);
    }
    controls::EnsureItemVisible(tree.Window(), tree.ItemByNumPath("1")->Item());
    RECT client{};
    GetClientRect(tree.Window(), &client);
    Host().ClearLog();
    std::vector<std::string> calls;
    std::vector<std::pair<HTREEITEM, ItemAtPoint>> found;
    LONG end = 0;
    for (HTREEITEM item = controls::RelatedItem(tree.Window(), TVGN_FIRSTVISIBLE); item != nullptr;
         item = controls::RelatedItem(tree.Window(), TVGN_NEXTVISIBLE, item)) {
        const auto rectangle = controls::ItemTextRectangle(tree.Host(), item);
        if (rectangle && rectangle->bottom <= client.bottom) {
            found.emplace_back(item, ItemIn(tree.Window(), *rectangle));
            calls.push_back(Written(found.back().second.steps));
            end = rectangle->right;
        }
    }
    EXPECT_FALSE(HasItemAt(tree.Window(), end + 20, 5)) << "beside the text";
    EXPECT_THAT(SeenBy(tree.Window(), {TVM_EXPAND, TVM_SELECTITEM, TVM_ENSUREVISIBLE}), IsEmpty());
    ASSERT_GE(calls.size(), 8u);
    calls.resize(8);
    EXPECT_THAT(calls,
                ElementsAre("ItemByPath('Box')", "ItemByPath('Box|Hole 1')", "ItemByPath('Box|Hole 2')",
                            "ItemByPath('Box|Hole 2|Thread')", "ItemByPath('Box|hole 2')",
                            "ItemByNumPath('1.4')", "ItemByNumPath('1.4.1')", "ItemByPath('Tr\xC3\xA4ger')"));
    EXPECT_EQ(found[6].second.text, "Never reached by name");
    for (const auto& [item, at] : found) {
        ghTreeControl script = tree;
        ItemAtPoint ansi = at;
        auto& path = std::get<std::string>(ansi.steps.at(0).arguments.at(0));
        path = Ansi(path);
        EXPECT_EQ(Follow(script, ansi), item) << at.text;
    }
}

TEST_F(ItemAtPointTest, AnItemFarDownALargeTreeIsToldByItsNumberOrNotAtAll) {
    const ghTreeControl tree(Window("Trees", ids::kLargeTree));
    for (const int number : {21, 5001}) {
        const HTREEITEM item = tree.ItemByNumPath(std::to_string(number))->Item();
        controls::EnsureItemVisible(tree.Window(), item);
        const auto found =
            ItemIn(tree.Window(), controls::ItemTextRectangle(tree.Host(), item).value_or(RECT{}));
        EXPECT_EQ(found.text, "Item " + std::to_string(number - 1));
        if (!found.steps.empty()) {
            EXPECT_EQ(Follow(tree, found), item);
        } else {
            EXPECT_GT(number, 1000) << "that many can be counted";
        }
    }
    EXPECT_FALSE(HasItemAt(tree.Window(), -5, 5));
}

TEST_F(ItemAtPointTest, TheFirstColumnOfAListViewIsSelectedTheOthersAreRead) {
    const ghListView list(Window("List views", ids::kPartsList));
    controls::EnsureListItemVisible(list.Window(), 0);
    Host().ClearLog();
    for (int row = 0; row < 6; ++row) {
        const auto first = ItemIn(list.Window(), controls::ListItemLabel(list.Host(), row));
        EXPECT_EQ(Ansi(first.text), list.GetItem(row));
        EXPECT_EQ(IndexOf(list, first.steps), row);
        EXPECT_EQ(first.steps[0].member, "SelectItemByName");
        RECT request{};
        request.top = 2;
        const auto third =
            ItemIn(list.Window(), RectangleOf(list.Window(), LVM_GETSUBITEMRECT, row, request));
        EXPECT_EQ(Written(third.steps), "GetSubItem(" + std::to_string(row) + ", 2)");
        EXPECT_EQ(third.text, list.GetSubItem(row, 2));
    }
    EXPECT_THAT(SeenBy(list.Window(), {LVM_ENSUREVISIBLE, LVM_SETITEMSTATE}), IsEmpty());
    EXPECT_FALSE(HasItemAt(list.Window(), 265, 100)) << "right of all columns";

    const ghListView layers(Window("List views", ids::kLayersList));
    const RECT label = controls::ListItemLabel(layers.Host(), 3);
    EXPECT_EQ(Written(ItemIn(layers.Window(), label).steps), "SelectItem(3)") << "\"Layer 1\" begins so, too";
    EXPECT_FALSE(HasItemAt(layers.Window(), 20, 200)) << "below the last one";

    const ghListView views(Window("List views", ids::kSingleList));
    EXPECT_EQ(Written(ItemIn(views.Window(), controls::ListItemLabel(views.Host(), 2)).steps),
              "SelectItemByName('Left')");
}

TEST_F(ItemAtPointTest, AnItemOfAListBox) {
    const auto rectangle = [](HWND list, int index) {
        RECT area{};
        SendMessageA(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&area));
        return area;
    };
    const ghListBox list(Window("List boxes", ids::kListBox));
    for (int index = 0; index < 11; ++index) {
        const auto item = ItemIn(list.Window(), rectangle(list.Window(), index));
        EXPECT_EQ(Ansi(item.text), list.GetItem(index));
        EXPECT_EQ(IndexOf(list, item.steps), index);
        EXPECT_EQ(item.steps[0].member, index == 3 ? "SelectItem" : "SelectItemByName") << item.text;
    }
    EXPECT_FALSE(HasItemAt(list.Window(), 20, 215)) << "below the last one";
    const HWND bare = Window("List boxes", ids::kOwnerDrawnList);
    const auto item = ItemIn(bare, rectangle(bare, 1));
    EXPECT_EQ(Written(item.steps), "SelectItem(1)");
    EXPECT_EQ(item.text, "");
}

// The list of a combo box while it is open.
HWND OpenList(HWND combo) {
    SendMessageA(combo, CB_SHOWDROPDOWN, TRUE, 0);
    HWND list = nullptr;
    while ((list = FindWindowExA(nullptr, list, "ComboLBox", nullptr)) != nullptr) {
        if (IsWindowVisible(list) &&
            GetWindowThreadProcessId(list, nullptr) == GetWindowThreadProcessId(combo, nullptr)) {
            break;
        }
    }
    return list;
}

RECT LineOf(HWND list, int index) {
    RECT area{};
    SendMessageA(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&area));
    return area;
}

TEST_F(ItemAtPointTest, AnItemOfAComboBoxesListIsReachedThroughTheComboBox) {
    const ghComboBox simple(Window("Combo boxes", ids::kSimpleCombo));
    const HWND shown = FindWindowExA(simple.Window(), nullptr, "ComboLBox", nullptr);
    for (const auto& [combo, list] :
         {std::pair{simple, shown},
          std::pair{ghComboBox(Window("Combo boxes", ids::kDropDownList)), HWND{}}}) {
        const HWND lines = list != nullptr ? list : OpenList(combo.Window());
        ASSERT_NE(lines, nullptr);
        for (int index = 0; index < 4; ++index) {
            const auto item = ItemIn(lines, LineOf(lines, index));
            EXPECT_EQ(item.window, combo.Window());
            EXPECT_EQ(Ansi(item.text), combo.GetItem(index));
            EXPECT_EQ(IndexOf(combo, item.steps), index) << item.text;
        }
        SendMessageA(combo.Window(), CB_SHOWDROPDOWN, FALSE, 0);
    }
}

TEST_F(ItemAtPointTest, AnItemOfAGroupComboHasItsHeadingWithIt) {
    const ghGroupCombo combo(Control(ids::kMaterial));
    const HWND list = OpenList(combo.Window());
    ASSERT_NE(list, nullptr);
    SendMessageA(list, LB_SETTOPINDEX, 0, 0);
    const auto heading = ItemIn(list, LineOf(list, 0));
    EXPECT_EQ(heading.text, "Metals");
    EXPECT_THAT(heading.steps, IsEmpty()) << "cannot be chosen";
    const auto item = ItemIn(list, LineOf(list, 2));
    EXPECT_EQ(Written(item.steps), "SelectItemByName('Metals', '" + combo.ItemText(2) + "')");
    EXPECT_EQ(item.window, combo.Window());
    SendMessageA(combo.Window(), CB_SHOWDROPDOWN, FALSE, 0);
}

TEST_F(ItemAtPointTest, ATab) {
    for (const unsigned id : {ids::kTabs, ids::kTabRows}) {
        const ghTabControl tabs(Window("Tabs", id));
        for (int index = 0; index < tabs.ItemsCount(); ++index) {
            const auto item = ItemIn(tabs.Window(), RectangleOf(tabs.Window(), TCM_GETITEMRECT, index));
            EXPECT_EQ(Ansi(item.text), tabs.GetItem(index));
            EXPECT_EQ(IndexOf(tabs, item.steps), index) << item.text;
        }
        RECT client{};
        GetClientRect(tabs.Window(), &client);
        EXPECT_FALSE(HasItemAt(tabs.Window(), client.right / 2, client.bottom - 3)) << "in the page";
    }
}

int ButtonOf(const ghToolbar& bar, const Step& step) {
    if (step.member == "GetItem") {
        return static_cast<int>(std::get<std::int64_t>(step.arguments.at(0)));
    }
    const int id =
        step.arguments.size() > 1 ? static_cast<int>(std::get<std::int64_t>(step.arguments[1])) : 0;
    return static_cast<const ghToolbarButton&>(
               *bar.GetItemByID(std::get<std::string>(step.arguments.at(0)), id))
        .Index();
}

TEST_F(ItemAtPointTest, AButtonOfAToolBar) {
    std::vector<std::string> calls;
    for (const char* name : {"Frame.1080", "Frame.1081", "Frame.1082"}) {
        const HWND bar = Host().Window(name);
        Host().ClearLog();
        std::vector<std::pair<int, ItemAtPoint>> items;
        const int count = static_cast<int>(SendMessageA(bar, TB_BUTTONCOUNT, 0, 0));
        for (int index = 0; index < count; ++index) {
            const hostlink::HostWindow host = {bar, Host().ThreadId()};
            const RECT rectangle = controlbars::ReadButtonRectangle(host, index).value_or(RECT{});
            if ((controlbars::ReadButton(host, index)->style & BTNS_SEP) != 0) {
                EXPECT_FALSE(HasItemAt(bar, (rectangle.left + rectangle.right) / 2, rectangle.top + 2))
                    << "a separator";
            } else {
                items.emplace_back(index, ItemIn(bar, rectangle));
            }
        }
        EXPECT_THAT(SeenBy(bar, {hostlink::BCGTOOLBAR_SET_CUSTOMIZE_MODE}), IsEmpty());
        for (const auto& [index, item] : items) {
            ASSERT_EQ(item.steps.size(), 1u);
            EXPECT_EQ(ButtonOf(ghToolbar(bar), item.steps[0]), index) << item.text;
            calls.push_back(Written(item.steps));
        }
    }
    EXPECT_THAT(calls, testing::IsSupersetOf({"GetItemByID('Open', 102)", "GetItemByID('Measure')",
                                              "GetItemByID('Circle', 702)"}));
}

TEST_F(ItemAtPointTest, AnEntryOfAPopupBarIsReachedAsContextMenu) {
    for (const unsigned area : {ids::kOwnMenuArea, ids::kProfessionalMenuArea}) {
        const HWND panel = Window("Context menus", area);
        POINT place{5, 5};
        ClientToScreen(panel, &place);
        PostMessageA(panel, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(panel), MAKELPARAM(place.x, place.y));
        std::unique_ptr<ghControlBar> bar;
        ASSERT_TRUE(support::Eventually([&] {
            bar = controlbars::FindCurrentContextMenu(ghBaseWindow(Host().Frame()));
            return bar != nullptr;
        }));
        const RECT entry = controlbars::ReadButtonRectangle(bar->Host(), 1).value_or(RECT{});
        EXPECT_EQ(explain::WindowAtPoint(Middle(bar->Window(), entry)), bar->Window());
        const auto item = ItemIn(bar->Window(), entry);
        EXPECT_EQ(item.window, Host().Frame());
        ASSERT_EQ(item.steps.size(), 2u);
        EXPECT_EQ(item.steps[0].member, "CurrentContextMenu");
        EXPECT_EQ(ButtonOf(static_cast<const ghToolbar&>(*bar), item.steps[1]), 1);
        bar->CloseMenu();
    }
}

TEST_F(ItemAtPointTest, ACellOfAGrid) {
    const HWND grid = Control(ids::kParameterGrid);
    const HWND large = Window("Large data", ids::kLargeGrid);
    const auto at = [](HWND window, int x, int y) {
        POINT point{x, y};
        ClientToScreen(window, &point);
        return explain::ItemOf(window, point).value_or(ItemAtPoint{});
    };
    const auto name = at(grid, 10, 30);
    EXPECT_EQ(name.kind, "grid cell");
    EXPECT_EQ(name.text, "Length");
    EXPECT_EQ(Written(name.steps), "GetText(1, 1)");
    const auto cell = at(large, 56 * 2 + 5, 20 * 4 + 5);
    EXPECT_EQ(cell.text, "4,3");
    EXPECT_EQ(Written(cell.steps), "GetText(4, 3)");
    RECT expected{56 * 2, 20 * 4, 56 * 3, 20 * 5};
    MapWindowPoints(large, nullptr, reinterpret_cast<POINT*>(&expected), 2);
    EXPECT_TRUE(EqualRect(&cell.rectangle, &expected));
    EXPECT_FALSE(HasItemAt(grid, 10, 5)) << "a heading";
    for (const auto style : {sample_host::Misbehaviour::AnswerNothing, sample_host::Misbehaviour::Answer165,
                             sample_host::Misbehaviour::AnswerGarbage}) {
        SampleHost::Misbehave(grid, style);
        EXPECT_FALSE(HasItemAt(grid, 10, 30)) << static_cast<unsigned>(style);
    }
    SampleHost::Misbehave(grid, sample_host::Misbehaviour::AnswerProperly);
}

// The item that the steps lead to.
ghOptionTree Follow(const ghOptionTree& tree, const Call& steps) {
    ghOptionTree item = tree;
    for (const Step& step : steps) {
        item = step.member == "GetItemByPath" ? tree.ItemByPath(std::get<std::string>(step.arguments.at(0)))
               : step.member == "Root"        ? tree.RootItem()
               : step.member == "Child"       ? item.ChildItem()
                                              : item.SiblingItem();
    }
    return item;
}

TEST_F(ItemAtPointTest, AnItemOfAnOptionTree) {
    const ghOptionTree tree(Window("Options", ids::kOptionTree));
    std::vector<std::string> calls;
    for (int row = 0; row < 11; ++row) {
        const auto item = ItemIn(tree.Window(), {100, row * 18 + 4, 104, row * 18 + 8});
        EXPECT_EQ(item.kind, "option tree item");
        EXPECT_EQ(Follow(tree, item.steps).Label(), item.text);
        calls.push_back(Written(item.steps));
    }
    EXPECT_EQ(calls[1], "GetItemByPath('General|Units')");
    EXPECT_EQ(calls[8], "GetItemByPath('Display|Background|Top')");
    EXPECT_FALSE(HasItemAt(tree.Window(), 100, 11 * 18 + 4));
    const ghOptionTree large(Window("Large data", ids::kLargeOptionTree));
    EXPECT_EQ(Written(ItemIn(large.Window(), {100, 40, 104, 44}).steps), "GetItemByPath('Group 0|Item 1')");
    // To the end, then three rows back.
    for (const int turn : {-32760, -32760, WHEEL_DELTA}) {
        SendMessageA(large.Window(), WM_MOUSEWHEEL, MAKEWPARAM(0, turn), 0);
    }
    const auto namesake = ItemIn(large.Window(), {100, 2 * 18 + 4, 104, 2 * 18 + 8});
    EXPECT_EQ(namesake.text, "Never reached by path");
    EXPECT_THAT(Written(namesake.steps), testing::StartsWith("Root().Child().Sibling().Sibling()"));
    EXPECT_EQ(Follow(large, namesake.steps).Label(), namesake.text);
}

TEST_F(ItemAtPointTest, WhereNothingIsAndWhereNobodyAnswersThereIsNone) {
    EXPECT_FALSE(explain::ItemOf(nullptr, {}));
    EXPECT_FALSE(explain::ItemOf(Host().Frame(), {-1, -1}));
    const HWND page = Window("Trees", ids::kPartsTree);
    POINT point{8, 8};
    ClientToScreen(page, &point);
    // In the middle of something: its own windows do not answer for five seconds.
    PostMessageA(page, RegisterWindowMessageA(sample_host::kMisbehaveMessage),
                 static_cast<WPARAM>(sample_host::Misbehaviour::Busy), 5000);
    Sleep(100);
    const ULONGLONG begin = GetTickCount64();
    EXPECT_FALSE(explain::ItemOf(page, point));
    EXPECT_EQ(hostlink::ProcessOf(explain::WindowAtPoint(point)), Host().ProcessId());
    EXPECT_LT(GetTickCount64() - begin, 3000u);
    SendMessageA(page, WM_NULL, 0, 0);
}

// A modal dialog, whose owner is disabled.
class WindowAtPointTest : public testing::Test {
protected:
    WindowAtPointTest() : m_host("--page settings") { m_dialog = m_host.WaitForWindow("Settings"); }
    HWND Control(unsigned id) const {
        return m_host.WaitForWindow(std::string("Settings.").append(std::to_string(id)));
    }
    static POINT MiddleOf(HWND window) {
        RECT rectangle{};
        GetWindowRect(window, &rectangle);
        return {(rectangle.left + rectangle.right) / 2, (rectangle.top + rectangle.bottom) / 2};
    }

    SampleHost m_host;
    HWND m_dialog = nullptr;
};

TEST_F(WindowAtPointTest, IsTheDeepestOneThatCanBeSeen) {
    for (const unsigned id : {ids::kEdit, ids::kLabel, ids::kApply, ids::kDisabledButton, ids::kListBox,
                              ids::kRadioMetric, ids::kDisabledBox}) {
        EXPECT_EQ(explain::WindowAtPoint(MiddleOf(Control(id))), Control(id)) << id;
    }
    const HWND group = Control(ids::kGroupBox);
    RECT frame{};
    GetWindowRect(group, &frame);
    EXPECT_EQ(explain::WindowAtPoint({frame.right - 3, frame.bottom - 3}), group) << "nothing else there";
    const POINT apply = MiddleOf(Control(ids::kApply));
    ShowWindow(Control(ids::kApply), SW_HIDE);
    SendMessageA(m_dialog, WM_NULL, 0, 0);
    EXPECT_EQ(explain::WindowAtPoint(apply), m_dialog) << "hidden";
    RECT disabled{};
    GetWindowRect(m_host.Frame(), &disabled);
    EXPECT_EQ(explain::WindowAtPoint({disabled.left + 30, disabled.top + 8}), m_host.Frame())
        << "a caption; the window is disabled";
}

} // namespace
