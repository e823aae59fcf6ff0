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
using support::Variant;

class ControlObjects : public support::DrivenHost {
protected:
    static void SetUpTestSuite() {
        DrivenHost::SetUpTestSuite();
        host = std::make_unique<support::SampleHost>("--page cad --page ribbon");
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

} // namespace
