// List views of a host of its own process.
#include "controls/ghListView.h"
#include "controls/item_search.h"
#include "controls/list_view_messages.h"
#include "hostlink/module_instance.h"
#include "support/code_page.h"
#include "support/sample_host.h"
#include "support/this_module.h"

#include <gmock/gmock.h>

#include <climits>
#include <commctrl.h>
#include <initializer_list>

namespace {

using sample_host::Delivery;
using sample_host::LogRecord;
using sample_host::Misbehaviour;
using support::Eventually;
using support::SampleHost;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
namespace ids = sample_host::ids;

class ListView : public testing::Test {
protected:
    static void SetUpTestSuite() {
        hostlink::SetModuleInstance(support::ThisModule());
        host = std::make_unique<SampleHost>("--page list-views");
        host->WaitForWindow(NameOf(ids::kLargeList)); // the last one that the page makes
    }
    static void TearDownTestSuite() { host.reset(); }

    static std::string NameOf(int id) { return "List views." + std::to_string(id); }
    static ghListView ListWithId(int id) { return ghListView(host->Window(NameOf(id))); }

    static std::vector<int> Selection(const ghListView& list) {
        std::vector<int> selected;
        for (int index = 0; index < list.ItemsCount(); ++index)
            if (list.IsSelected(index))
                selected.push_back(index);
        return selected;
    }

    static bool Posted(HWND window, UINT message) { return !host->Log().Records(message, window).empty(); }

    static std::vector<LogRecord> Notifications(UINT code) {
        std::vector<LogRecord> found;
        const std::string end = " code=" + std::to_string(static_cast<int>(code));
        for (const LogRecord& record : host->Log().Records(WM_NOTIFY))
            if (std::string(record.text).ends_with(end))
                found.push_back(record);
        return found;
    }

    static inline std::unique_ptr<SampleHost> host;
    ghListView parts = ListWithId(ids::kPartsList);
    ghListView layers = ListWithId(ids::kLayersList);
};

TEST_F(ListView, ReadsItemsAndSubItems) {
    if (!support::HasCharacterPerByte()) {
        GTEST_SKIP() << support::kNoCharacterPerByte;
    }
    ASSERT_EQ(parts.ItemsCount(), 40);
    EXPECT_EQ(parts.GetItem(3), "Tr\xE4ger");
    EXPECT_EQ(parts.GetSubItem(3, 1), "Aluminium");
    EXPECT_EQ(parts.GetSubItem(3, 2), "2.5");
    EXPECT_EQ(parts.GetSubItem(3, 3), "");
    for (const auto& [index, length] : {std::pair(5, 1022), {6, 1023}, {7, 1023}, {8, 1023}})
        EXPECT_EQ(parts.GetItem(index).size(), static_cast<std::size_t>(length));
    for (const int none : {-1, 40, INT_MAX}) {
        host->ClearLog();
        EXPECT_EQ(parts.GetItem(none), "");
        EXPECT_EQ(parts.GetSubItem(none, 1), "");
        EXPECT_THAT(host->Log().Records(LVM_GETITEMTEXTA), IsEmpty());
    }
}

TEST_F(ListView, FindsTheFirstItemThatBeginsWithTheName) {
    if (!support::HasCharacterPerByte()) {
        GTEST_SKIP() << support::kNoCharacterPerByte;
    }
    EXPECT_EQ(controls::ActivateAndFindItem(parts, "Bear"), 1);
    EXPECT_EQ(controls::ActivateAndFindItem(parts, "Bearing c"), 2);
    EXPECT_EQ(controls::ActivateAndFindItem(parts, "bear"), 4);
    EXPECT_EQ(controls::ActivateAndFindItem(parts, "Tr\xE4"), 3);
    EXPECT_EQ(controls::ActivateAndFindItem(parts, ""), 0);
    EXPECT_EQ(controls::ActivateAndFindItem(parts, "Bearing cap "), -1);
    EXPECT_EQ(controls::ActivateAndFindItem(ListWithId(ids::kLargeList), "Item 9999"), 9999);
}

TEST_F(ListView, SelectsOneItemAndNoOther) {
    EXPECT_EQ(parts.SelectedItem(), -1);
    EXPECT_TRUE(parts.SelectItemByName("Bearing"));
    EXPECT_THAT(Selection(parts), ElementsAre(1));
    host->ClearLog();
    EXPECT_TRUE(parts.SelectItem(39)); // not in view
    EXPECT_THAT(Selection(parts), ElementsAre(39));
    EXPECT_EQ(parts.SelectedItem(), 39);
    std::vector<UINT> order;
    for (const LogRecord& record : host->Log().Records())
        for (const auto message :
             std::initializer_list<UINT>{LVM_SETSELECTIONMARK, WM_KEYDOWN, WM_KEYUP, WM_LBUTTONDOWN})
            if (record.message == message && record.controlId == ids::kPartsList)
                order.push_back(message);
    EXPECT_THAT(order, ElementsAre(LVM_SETSELECTIONMARK, WM_KEYDOWN, WM_KEYUP, WM_LBUTTONDOWN));
    const auto key = host->Log().Records(WM_KEYUP, parts.Window()).at(0);
    EXPECT_EQ(key.wParam, static_cast<WPARAM>(VK_SPACE));
    EXPECT_EQ(key.lParam, 1u);

    // An item that is selected already gets no click, but all the rest.
    host->ClearLog();
    EXPECT_TRUE(parts.SelectItem(39));
    EXPECT_TRUE(Eventually([&] { return Posted(parts.Window(), WM_KEYUP); }));
    EXPECT_TRUE(Posted(parts.Window(), LVM_SETSELECTIONMARK));
    EXPECT_FALSE(Posted(parts.Window(), WM_LBUTTONDOWN));

    for (const int none : {-1, 40, INT_MAX}) {
        EXPECT_FALSE(parts.SelectItem(none));
        EXPECT_FALSE(parts.IsSelected(none));
    }
    EXPECT_FALSE(parts.SelectItemByName("No such part"));
}

TEST_F(ListView, AddsToTheSelectionAndTakesFromIt) {
    if (!support::HasCharacterPerByte()) {
        GTEST_SKIP() << support::kNoCharacterPerByte;
    }
    ASSERT_TRUE(parts.SelectItem(1));
    host->ClearLog();
    EXPECT_TRUE(parts.AddToSelectionByName("Tr\xE4ger"));
    EXPECT_THAT(Selection(parts), ElementsAre(1, 3));
    EXPECT_EQ(host->Log().Records(WM_LBUTTONDOWN, parts.Window()).at(0).wParam, MK_CONTROL | MK_LBUTTON);
    EXPECT_TRUE(parts.AddToSelection(4));
    EXPECT_THAT(Selection(parts), ElementsAre(1, 3, 4));
    EXPECT_THAT(host->Log().Records(LVM_SETSELECTIONMARK), IsEmpty());

    SetCursorPos(5, 5);
    host->ClearLog();
    EXPECT_TRUE(parts.UnselectItemByName("Bearing"));
    POINT cursor = {};
    GetCursorPos(&cursor);
    EXPECT_EQ(WindowFromPoint(cursor), parts.Window()); // it was real input
    const auto click = host->Log().Records(WM_LBUTTONDOWN, parts.Window()).at(0);
    // Wine builds the message from the keyboard itself, where no control key is down.
    if ((click.wParam & MK_CONTROL) != 0) {
        EXPECT_THAT(Selection(parts), ElementsAre(3, 4));
    }
    host->ClearLog();
    EXPECT_TRUE(parts.UnselectItem(0)); // nothing to do
    EXPECT_FALSE(Posted(parts.Window(), WM_LBUTTONDOWN));
    EXPECT_FALSE(parts.RealInput());
    EXPECT_FALSE(parts.AddToSelection(40));
    EXPECT_FALSE(parts.UnselectItem(-1));
}

TEST_F(ListView, OpensTheSelectedItem) {
    ASSERT_TRUE(parts.SelectItem(2));
    ASSERT_TRUE(parts.AddToSelection(3));
    host->ClearLog();
    parts.Select();
    EXPECT_THAT(Notifications(NM_DBLCLK), Not(IsEmpty()));
    EXPECT_EQ(host->Log().Records(WM_LBUTTONDBLCLK, parts.Window()).at(0).wParam, MK_CONTROL | MK_LBUTTON);

    ghListView single = ListWithId(ids::kSingleList);
    ASSERT_EQ(single.SelectedItem(), -1);
    host->ClearLog();
    single.Select();
    EXPECT_FALSE(Posted(single.Window(), WM_LBUTTONDBLCLK));
    EXPECT_TRUE(single.SelectItemByName("Iso"));
    EXPECT_EQ(single.SelectedItem(), 3);
    EXPECT_TRUE(single.SelectItem(0));
    EXPECT_THAT(Selection(single), ElementsAre(0));
}

TEST_F(ListView, ChecksAndUnchecks) {
    EXPECT_FALSE(layers.IsChecked(1));
    EXPECT_TRUE(layers.CheckItemByName("Lay")); // begins "Layer 1", "Layer 10" and "Lay"
    EXPECT_TRUE(layers.IsChecked(1));
    EXPECT_FALSE(layers.IsChecked(2));
    EXPECT_FALSE(layers.IsChecked(3));
    EXPECT_TRUE(layers.CheckItem(3));
    EXPECT_TRUE(layers.UncheckItemByName("Layer 1"));
    EXPECT_TRUE(layers.UncheckItem(1)); // nothing to do
    EXPECT_FALSE(layers.IsChecked(1));
    EXPECT_TRUE(layers.IsChecked(3));
    for (const int none : {-1, 5, INT_MAX}) {
        EXPECT_FALSE(layers.CheckItem(none));
        EXPECT_FALSE(layers.UncheckItem(none));
        EXPECT_FALSE(layers.IsChecked(none));
    }
    // Without check boxes every item counts as checked, and none can be.
    EXPECT_TRUE(parts.IsChecked(0));
    EXPECT_FALSE(parts.CheckItem(0));
    EXPECT_FALSE(parts.UncheckItem(0));
}

TEST_F(ListView, OpensTheMenuOfAnItemOrOfThePlaceBelow) {
    const auto hasEntry = [](std::unique_ptr<ghControlBar> menu, const std::string& text) {
        if (menu == nullptr)
            return false;
        const bool found = menu->GetItemByID(text, 0)->IsValid();
        menu->CloseMenu();
        EXPECT_TRUE(Eventually([&] { return !IsWindow(menu->Window()); }));
        return found;
    };
    ASSERT_TRUE(layers.SelectItem(2));
    EXPECT_TRUE(hasEntry(layers.ContextMenu(true), "Open 2"));
    EXPECT_TRUE(hasEntry(layers.ContextMenu(false), "Add item"));
    controls::SetListItemState(layers.Host(), 2, LVIS_SELECTED, 0);
    EXPECT_TRUE(hasEntry(layers.ContextMenu(true), "Add item"));
}

TEST_F(ListView, EndsASearchWhoseListGoes) {
    ghListView large = ListWithId(ids::kLargeList);
    SampleHost::Misbehave(large.Window(), Misbehaviour::DestroyLater, 1500);
    EXPECT_EQ(controls::ActivateAndFindItem(large, "No such item"), -1);
    EXPECT_TRUE(Eventually([&] { return !IsWindow(large.Window()); }));

    EXPECT_EQ(large.ItemsCount(), 0);
    EXPECT_EQ(large.GetItem(0), "");
    EXPECT_FALSE(large.SelectItem(0));
    EXPECT_FALSE(large.CheckItemByName("Item"));
    EXPECT_FALSE(large.IsChecked(0));
    EXPECT_FALSE(host->HasEnded());
}

} // namespace
