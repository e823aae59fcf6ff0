// The objects of the host's own controls, as a script reaches them, and the kind of object that each search
// by name gives.
#include <gmock/gmock.h>

#include "com/driven_host.h"
#include "com/late_bound.h"

namespace {

using support::Arguments;
using support::Ask;
using support::Bstr;
using support::CallByName;
using support::ComPointer;
using support::PutByName;
using support::Variant;

class ControlObjects : public support::DrivenHost {
protected:
    static void SetUpTestSuite() {
        DrivenHost::SetUpTestSuite();
        host = std::make_unique<support::SampleHost>("--page cad --page options --page ribbon");
        host->WaitForWindow("Customise ribbon.1120"); // the last one
    }

    static GUID KindOf(IDispatch& object) {
        ComPointer<ITypeInfo> type;
        support::Require(object.GetTypeInfo(0, 0, type.Receive()), "GetTypeInfo");
        TYPEATTR* attributes = nullptr;
        support::Require(type->GetTypeAttr(&attributes), "GetTypeAttr");
        const GUID kind = attributes->guid;
        type->ReleaseTypeAttr(attributes);
        return kind;
    }

    static ComPointer<ICADTreeItem> Shaft() {
        ComPointer<ITreeControl> tree;
        support::Require(MainWindow()->CADTreeByID(Bstr(L"CAD.1100"), 10, tree.Receive()), "CADTreeByID");
        ComPointer<ITreeItem> item;
        support::Require(tree->ItemByPath(Bstr(L"Gearbox|Shafts|Input shaft"), item.Receive()), "ItemByPath");
        ComPointer<ICADTreeItem> shaft;
        support::Require(item->QueryInterface(__uuidof(ICADTreeItem), shaft.ReceiveVoid()), "ICADTreeItem");
        return shaft;
    }
};

TEST_F(ControlObjects, SearchesByNameGiveTheKindThatTheirNameTells) {
    const struct {
        const wchar_t* member;
        GUID kind;
    } kSearches[] = {{L"WindowByID", __uuidof(IBaseWindow)},
                     {L"CADViewByID", __uuidof(ICADView)},
                     {L"CheckBoxByID", __uuidof(ICheckBox)},
                     {L"ButtonByID", __uuidof(IBaseWindow)},
                     {L"TabCtrlByID", __uuidof(ITabControl)},
                     {L"CADTreeByID", __uuidof(ITreeControl)},
                     {L"EditByID", __uuidof(IBaseWindow)},
                     {L"GXGridByID", __uuidof(IGXGrid)},
                     {L"ListBoxByID", __uuidof(IListBox)},
                     {L"ListViewByID", __uuidof(IListView)},
                     {L"OptionTreeByID", __uuidof(IOptionTree)},
                     {L"TrackBarByID", __uuidof(ITrackBar)},
                     {L"ComboBoxByID", __uuidof(IComboBox)},
                     {L"GroupComboByID", __uuidof(IGroupCombo)},
                     {L"RibCustomisationWidgetByID", __uuidof(IRibCustomisationWidget)}};
    const auto main = MainWindow();
    for (const auto& search : kSearches) {
        SCOPED_TRACE(testing::Message() << search.member);
        // The window's class is not asked: any window serves.
        const Variant found = Ask(*main.Get(), search.member, L"CAD.1101", LONG{10});
        ASSERT_NE(found.Object(), nullptr);
        EXPECT_EQ(KindOf(*found.Object()), search.kind);
        EXPECT_EQ(Ask(*found.Object(), L"ControlID").Long(), 1101);
        EXPECT_EQ(Ask(*main.Get(), search.member, L"no such name", LONG{0}).Object(), nullptr);
    }
}

TEST_F(ControlObjects, ItemsOfACadTreeKeepTheirTextToThemselves) {
    const auto shaft = Shaft();
    ComPointer<IDispatch> asDispatch;
    ASSERT_EQ(shaft->QueryInterface(IID_IDispatch, asDispatch.ReceiveVoid()), S_OK);
    EXPECT_EQ(KindOf(*asDispatch.Get()), __uuidof(ICADTreeItem));
    Bstr sentinel(L"sentinel");
    BSTR text = sentinel;
    EXPECT_EQ(shaft->get_Text(&text), E_NOTIMPL);
    EXPECT_EQ(text, nullptr);
    EXPECT_EQ(shaft->put_Text(Bstr(L"Renamed")), E_NOTIMPL);
    LONG image = 7;
    EXPECT_EQ(shaft->get_StateImage(&image), E_NOTIMPL);
    EXPECT_EQ(image, 0);
    EXPECT_EQ(shaft->get_Starred(nullptr), E_POINTER);
    EXPECT_TRUE(Ask(*asDispatch.Get(), L"Visible").Bool());

    const auto clients = Create<ICADTreeItem>(CLSID_CADTreeItem);
    EXPECT_EQ(clients->get_StateImage(&image), E_UNEXPECTED);
    EXPECT_EQ(clients->put_Text(Bstr(L"Renamed")), E_UNEXPECTED);
}

TEST_F(ControlObjects, WalksOfAnOptionTreeAndUnknownFormsEndInSFalse) {
    const auto main = MainWindow();
    ComPointer<IRibCustomisationWidget> widget;
    ASSERT_EQ(main->RibCustomisationWidgetByID(Bstr(L"Customise ribbon.1120"), 10, widget.Receive()), S_OK);
    EXPECT_EQ(widget->put_Selected(Bstr(L"no such form")), S_FALSE);

    // A view is no option tree: it answers nothing, and so has no root.
    ComPointer<IOptionTree> tree;
    ASSERT_EQ(main->OptionTreeByID(Bstr(L"CAD.1101"), 10, tree.Receive()), S_OK);
    ComPointer<IOptionTreeItem> item;
    EXPECT_EQ(tree->get_Root(item.Receive()), S_FALSE);
    EXPECT_FALSE(item);
    EXPECT_EQ(tree->GetItemByPath(Bstr(L"General|Units"), item.Receive()), S_FALSE);
    EXPECT_FALSE(item);
}

TEST_F(ControlObjects, AGridTellsReadOnlyCellsByAPropertyWithTwoArguments) {
    const Variant grid = Ask(*MainWindow().Get(), L"GXGridByID", L"CAD.1103");
    ASSERT_NE(grid.Object(), nullptr);
    EXPECT_TRUE(Ask(*grid.Object(), L"IsReadOnly", LONG{2}, LONG{1}).Bool());
    EXPECT_FALSE(Ask(*grid.Object(), L"IsReadOnly", LONG{2}, LONG{2}).Bool());
    EXPECT_FALSE(Ask(*grid.Object(), L"IsReadOnly", LONG{0}, LONG{1}).Bool());
}

TEST_F(ControlObjects, ItemsOfACadTreeKeepWhatAScriptSets) {
    const auto shaft = Shaft();
    for (const wchar_t* property : {L"Visible", L"Checked", L"Starred"}) {
        SCOPED_TRACE(testing::Message() << property);
        const bool before = Ask(*shaft.Get(), property).Bool();
        PutByName(*shaft.Get(), property, !before);
        EXPECT_EQ(Ask(*shaft.Get(), property).Bool(), !before);
        PutByName(*shaft.Get(), property, before);
        EXPECT_EQ(Ask(*shaft.Get(), property).Bool(), before);
    }
    PutByName(*shaft.Get(), L"Color", LONG{0x00C86838});
    EXPECT_EQ(Ask(*shaft.Get(), L"Color").Long(), 0x00C86838);
}

TEST_F(ControlObjects, ItemsOfAnOptionTreeAreWalkedReadAndSet) {
    const Variant tree = Ask(*MainWindow().Get(), L"OptionTreeByID", L"Options.1110", LONG{10});
    ASSERT_NE(tree.Object(), nullptr);
    const Variant root = Ask(*tree.Object(), L"Root");
    ASSERT_NE(root.Object(), nullptr);
    EXPECT_EQ(Ask(*root.Object(), L"Label").Text(), L"Options");
    EXPECT_EQ(Ask(*root.Object(), L"Parent").Object(), nullptr);
    EXPECT_EQ(Ask(*root.Object(), L"Sibling").Object(), nullptr);
    const Variant general = Ask(*root.Object(), L"Child");
    EXPECT_EQ(Ask(*general.Object(), L"Label").Text(), L"General");
    EXPECT_EQ(Ask(*Ask(*general.Object(), L"Sibling").Object(), L"Label").Text(), L"Display");
    EXPECT_EQ(Ask(*Ask(*general.Object(), L"Parent").Object(), L"Label").Text(), L"Options");

    const Variant units = Ask(*general.Object(), L"Child");
    EXPECT_FALSE(Ask(*units.Object(), L"IsCheckbox").Bool());
    EXPECT_FALSE(Ask(*units.Object(), L"IsReadOnly").Bool());
    PutByName(*units.Object(), L"Text", L"inch");
    EXPECT_EQ(Ask(*units.Object(), L"Text").Text(), L"inch");

    const Variant save = Ask(*tree.Object(), L"GetItemByPath", L"General|Save automatically");
    EXPECT_TRUE(Ask(*save.Object(), L"IsCheckbox").Bool());
    EXPECT_TRUE(Ask(*save.Object(), L"Checked").Bool());
    PutByName(*save.Object(), L"Checked", false);
    EXPECT_FALSE(Ask(*save.Object(), L"Checked").Bool());

    const Variant version = Ask(*tree.Object(), L"GetItemByPath", L"General|Version");
    EXPECT_TRUE(Ask(*version.Object(), L"IsReadOnly").Bool());
    EXPECT_EQ(Ask(*version.Object(), L"Sibling").Object(), nullptr);
    EXPECT_EQ(Ask(*version.Object(), L"Child").Object(), nullptr);
}

TEST_F(ControlObjects, AGroupComboIsReadAndChosenFrom) {
    const Variant found = Ask(*MainWindow().Get(), L"GroupComboByID", L"CAD.1102", LONG{10});
    ASSERT_NE(found.Object(), nullptr);
    IDispatch& combo = *found.Object();
    EXPECT_EQ(Ask(combo, L"GetItemCount").Long(), 10);
    EXPECT_EQ(Ask(combo, L"GetItem", LONG{0}).Text(), L"Metals");
    EXPECT_EQ(Ask(combo, L"GetItem", LONG{10}).Text(), L"");
    EXPECT_EQ(Ask(combo, L"GetHeading", LONG{7}).Text(), L"Plastics");
    EXPECT_TRUE(Ask(combo, L"SelectItemByName", L"Plastics", L"Nylon").Bool());
    EXPECT_EQ(Ask(combo, L"Text").Text(), L"Nylon");
    EXPECT_EQ(Ask(combo, L"HeadingText").Text(), L"Plastics");
    EXPECT_FALSE(Ask(combo, L"SelectItemByName", L"Metals", L"Nylon").Bool());
    EXPECT_TRUE(Ask(combo, L"SelectItem", LONG{1}).Bool());
    EXPECT_FALSE(Ask(combo, L"SelectItem", LONG{0}).Bool()); // a heading
    EXPECT_EQ(Ask(combo, L"Text").Text(), L"Aluminium");
    EXPECT_EQ(Ask(combo, L"HeadingText").Text(), L"Metals");
}

TEST_F(ControlObjects, AViewTakesDoubleClicksAndOpensItsMenu) {
    const Variant found = Ask(*MainWindow().Get(), L"CADViewByID", L"CAD.1101", LONG{10});
    ASSERT_NE(found.Object(), nullptr);
    const HWND view = host->Window("CAD.1101");
    host->ClearLog();
    // Recorded in a view of that size, whose corners are those of this one.
    Ask(*found.Object(), L"DoubleClick", LONG{1}, LONG{50}, LONG{50}, LONG{100}, LONG{100});
    EXPECT_THAT(host->Log().Records(WM_LBUTTONDBLCLK, view), testing::SizeIs(1));

    // Another program's menu has no items under Wine, and is not handed out there.
    Ask(*found.Object(), L"ContextMenu", LONG{50}, LONG{50}, LONG{100}, LONG{100});
    EXPECT_THAT(host->Log().Records(WM_CONTEXTMENU, view), testing::SizeIs(1));
    SendMessageA(host->Frame(), WM_CANCELMODE, 0, 0);
}

} // namespace
