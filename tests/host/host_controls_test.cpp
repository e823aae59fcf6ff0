// The host's own controls: what goes over the wire, byte by byte, and what becomes of good and bad answers.
#include "contract_log.h"
#include "controls/ghCADTree.h"
#include "controls/ghCADTreeItem.h"
#include "controls/ghGXGrid.h"
#include "controls/ghOptionTree.h"
#include "controls/ghRibCustomiser.h"
#include "controls/host_control_search.h"
#include "hostlink/module_instance.h"
#include "hostlink/shared_section.h"
#include "support/this_module.h"

#include <gmock/gmock.h>

namespace {

using sample_host::Misbehaviour;
using support::Codes;
using support::Request;
using support::Requests;
using support::SampleHost;
using testing::AnyOf;
using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
namespace ids = sample_host::ids;

const std::string kTooLong(1024, 'x');

class HostControls : public testing::Test {
protected:
    static void SetUpTestSuite() {
        hostlink::SetModuleInstance(support::ThisModule());
        host = std::make_unique<SampleHost>("--page cad --page options --page large-data --page ribbon");
        host->WaitForWindow("Customise ribbon.1120"); // the last one
    }
    static void TearDownTestSuite() { host.reset(); }
    void SetUp() override { host->ClearLog(); }
    void TearDown() override {
        for (const char* name : {"CAD.1100", "CAD.1103", "Options.1110", "Customise ribbon.1120"}) {
            Answer(host->Window(name), Misbehaviour::AnswerProperly);
        }
        EXPECT_FALSE(host->HasEnded());
    }

    static void Answer(HWND window, Misbehaviour style) { SampleHost::Misbehave(window, style); }
    static std::vector<Request> RequestsOf(const char* message, HWND window) {
        return Requests(*host, RegisterWindowMessageA(message), window);
    }

    // The text buffer in a record lies in the shared section, as the record itself does.
    static void ExpectTextBuffer(const Request& request, std::size_t offset) {
        EXPECT_EQ(request.At<std::uint64_t>(offset), request.lParam +
                                                         offsetof(hostlink::SharedSection, remoteString) -
                                                         offsetof(hostlink::SharedSection, remoteData));
        EXPECT_EQ(request.At<std::uint32_t>(offset + 8), 1024u);
    }

    static inline std::unique_ptr<SampleHost> host;
};

TEST_F(HostControls, GridCellsAreReadAndSetByRowAndColumn) {
    const ghGXGrid grid(host->Window("CAD.1103"));
    EXPECT_EQ(grid.CellText(2, 1), "Width");
    auto requests = RequestsOf("MSG_GX_RequestGridInformation", grid.Window());
    ASSERT_THAT(Codes(requests), ElementsAre(2, 1, 3)); // rows, columns, the cell
    ASSERT_EQ(requests[2].record.size(), 24u);
    EXPECT_EQ(requests[2].At<std::int32_t>(0), 2);
    EXPECT_EQ(requests[2].At<std::int32_t>(4), 1);
    ExpectTextBuffer(requests[2], 8);
    EXPECT_EQ(requests[2].text, "");

    host->ClearLog();
    EXPECT_TRUE(grid.SetCellText(2, 2, "120.5"));
    requests = RequestsOf("MSG_GX_RequestGridInformation", grid.Window());
    ASSERT_THAT(Codes(requests), ElementsAre(2, 1, 4));
    ExpectTextBuffer(requests[2], 8);
    EXPECT_EQ(requests[2].text, "120.5");
    EXPECT_EQ(grid.CellText(2, 2), "120.5");
    EXPECT_FALSE(grid.SetCellText(2, 2, "wide")); // the host refuses it
    EXPECT_EQ(grid.CellText(2, 2), "120.5");

    EXPECT_FALSE(grid.IsReadOnly(2, 2));
    EXPECT_TRUE(grid.IsReadOnly(2, 1));
    EXPECT_EQ(Codes(RequestsOf("MSG_GX_RequestGridInformation", grid.Window())).back(), 6);
}

TEST_F(HostControls, NothingIsSentForACellOutOfRangeOrATextTooLong) {
    const ghGXGrid grid(host->Window("CAD.1103"));
    const int rows = grid.RowsCount(), columns = grid.ColumnsCount();
    EXPECT_EQ(rows, 8);
    EXPECT_EQ(columns, 3);
    host->ClearLog();
    for (const auto& [row, column] : {std::pair{0, 1}, {rows + 1, 1}, {1, 0}, {1, columns + 1}, {-1, -1}}) {
        EXPECT_EQ(grid.CellText(row, column), "");
        EXPECT_FALSE(grid.SetCellText(row, column, "1"));
        EXPECT_FALSE(grid.IsReadOnly(row, column));
    }
    EXPECT_THAT(Codes(RequestsOf("MSG_GX_RequestGridInformation", grid.Window())), Each(AnyOf(1, 2)));
    const ghRibCustomiser widget(host->Window("Customise ribbon.1120"));
    const ghOptionTree tree(host->Window("Options.1110"));
    const auto units = tree.ItemByPath("General|Units");
    host->ClearLog();
    EXPECT_FALSE(grid.SetCellText(1, 2, kTooLong));
    EXPECT_FALSE(widget.Select(kTooLong));
    units.SetValue(kTooLong);
    EXPECT_THAT(RequestsOf("MSG_GX_RequestGridInformation", grid.Window()), IsEmpty());
    EXPECT_THAT(RequestsOf("MSG_REQUEST_RIB_CUSTOMISATION_WIDGET_DATA", widget.Window()), IsEmpty());
    EXPECT_THAT(RequestsOf("MSG_OT_RequestInformation", tree.Window()), IsEmpty());
    // One byte less goes out; the number is no parameter.
    EXPECT_FALSE(grid.SetCellText(1, 2, std::string(1023, '9')));
    EXPECT_EQ(RequestsOf("MSG_GX_RequestGridInformation", grid.Window()).back().text.substr(0, 3), "999");
}

TEST_F(HostControls, OptionTreePathsNameLabelsBelowTheRoot) {
    const ghOptionTree tree(host->Window("Options.1110"));
    const auto label = [&](const std::string& path) { return tree.ItemByPath(path).Label(); };
    EXPECT_EQ(tree.RootItem().Label(), "Options");
    EXPECT_FALSE(tree.IsValidItem());
    EXPECT_EQ(label("General|Units"), "Units");
    EXPECT_EQ(label("/Display\\Background||Bottom"), "Bottom");
    EXPECT_EQ(label(""), "General");
    EXPECT_EQ(label("|/\\"), "General");
    for (const std::string& path :
         {std::string("general"), std::string("Gen"), std::string("Options|General"),
          std::string("General|Units|mm"), "General" + std::string(32761, '|')}) {
        EXPECT_FALSE(tree.ItemByPath(path).IsValidItem()) << path;
    }
    EXPECT_EQ(label("General" + std::string(32760, '|')), "General"); // 32,767 bytes

    const ghOptionTree units = tree.ItemByPath("General|Units");
    EXPECT_EQ(units.ParentItem().Label(), "General");
    EXPECT_EQ(units.SiblingItem().Label(), "Save automatically");
    EXPECT_FALSE(units.ChildItem().IsValidItem());
    EXPECT_FALSE(tree.ItemByPath("Licence").SiblingItem().IsValidItem());
}

TEST_F(HostControls, OptionTreeItemsTravelWithAll64BitsOfTheirIdentifier) {
    const ghOptionTree tree(host->Window("Options.1110"));
    const ghOptionTree units = tree.ItemByPath("General|Units");
    host->ClearLog();
    units.SetValue("inch");
    EXPECT_EQ(units.Value(), "inch");
    EXPECT_EQ(units.Label(), "Units");
    EXPECT_FALSE(units.IsCheckbox());
    EXPECT_TRUE(tree.ItemByPath("General|Version").IsReadOnly());
    const auto requests = RequestsOf("MSG_OT_RequestInformation", tree.Window());
    const auto codes = Codes(requests);
    ASSERT_GE(codes.size(), 5u);
    // Set text, text, label, kind; then the walk to another item: root, child, label ...
    EXPECT_THAT(std::vector(codes.begin(), codes.begin() + 7), ElementsAre(9, 8, 1, 6, 2, 3, 1));
    EXPECT_EQ(codes.back(), 7);
    ASSERT_EQ(requests[0].record.size(), 24u);
    EXPECT_EQ(requests[0].At<std::uint64_t>(0), requests[3].lParam);
    EXPECT_GT(requests[3].lParam, 0xFFFFFFFFu);
    ExpectTextBuffer(requests[0], 8);
    EXPECT_EQ(requests[0].text, "inch");
    EXPECT_EQ(requests[1].text, "");

    const ghOptionTree shadows = tree.ItemByPath("Display|Shadows");
    EXPECT_TRUE(shadows.IsCheckbox());
    EXPECT_FALSE(shadows.Checked());
    shadows.SetChecked(true);
    EXPECT_EQ(shadows.Value(), "1");
    EXPECT_TRUE(shadows.Checked());
    units.SetValue("01"); // only "1" is checked
    EXPECT_FALSE(units.Checked());
}

TEST_F(HostControls, RibbonWidgetSelectsByName) {
    const HWND dialog = host->Window("Customise ribbon");
    const ghRibCustomiser widget(controls::FindRibbonWidget(dialog, "forms", 0, 0));
    ASSERT_EQ(widget.Window(), host->Window("Customise ribbon.1120"));
    EXPECT_EQ(controls::FindRibbonWidget(dialog, "", ids::kRibbonWidget, 0), widget.Window());
    EXPECT_EQ(controls::FindRibbonWidget(dialog, "Form to", 0, 0), nullptr); // a label like any other
    host->ClearLog();
    EXPECT_EQ(widget.Selected(), "Home");
    EXPECT_TRUE(widget.Select("Drawing"));
    const auto requests = RequestsOf("MSG_REQUEST_RIB_CUSTOMISATION_WIDGET_DATA", widget.Window());
    ASSERT_THAT(Codes(requests), ElementsAre(1, 2));
    ASSERT_EQ(requests[1].record.size(), 16u);
    ExpectTextBuffer(requests[1], 0);
    EXPECT_EQ(requests[1].text, "Drawing");
    EXPECT_FALSE(widget.Select("drawing"));
    EXPECT_EQ(widget.Selected(), "Drawing");
    EXPECT_EQ(ghRibCustomiser(dialog).Selected(), "");
}

TEST_F(HostControls, CadTreeItemsHaveAttributes) {
    ghCADTree tree(host->Window("CAD.1100"));
    tree.SetSynchronization(false);
    const auto item = tree.ItemByPath("Gearbox|Shafts|Input shaft");
    const auto* shaft = dynamic_cast<const ghCADTreeItem*>(item.get());
    ASSERT_NE(shaft, nullptr);
    host->ClearLog();
    EXPECT_TRUE(shaft->Visible());
    shaft->SetVisible(false);
    EXPECT_FALSE(shaft->Visible());
    shaft->SetVisible(true);
    EXPECT_FALSE(shaft->Checked());
    shaft->SetChecked(true);
    EXPECT_TRUE(shaft->Checked());
    shaft->SetChecked(false);
    EXPECT_FALSE(shaft->Starred());
    shaft->SetStarred(true);
    EXPECT_TRUE(shaft->Starred());
    shaft->SetStarred(false);
    EXPECT_EQ(shaft->Color(), RGB(196, 160, 92));
    shaft->SetColor(-1);
    EXPECT_EQ(shaft->Color(), -1);

    const auto requests = RequestsOf("hlWM_REQUEST_CAD_TREE_INFORMATION", tree.Window());
    ASSERT_THAT(Codes(requests), ElementsAre(1, 3, 1, 2, 4, 5, 4, 6, 10, 11, 10, 12, 7, 8, 7));
    EXPECT_EQ(requests[0].lParam, reinterpret_cast<std::uintptr_t>(shaft->Item()));
    ASSERT_EQ(requests[13].record.size(), 16u);
    EXPECT_EQ(requests[13].At<std::uint64_t>(0), reinterpret_cast<std::uintptr_t>(shaft->Item()));
    EXPECT_EQ(requests[13].At<std::uint32_t>(8), 0xFFFFFFFFu);

    // Only what changes the program waits for it.
    tree.SetSynchronization(true);
    const auto synchronised = tree.ItemByPath("Gearbox|Shafts|Input shaft");
    const auto& waiting = dynamic_cast<const ghCADTreeItem&>(*synchronised);
    const auto syncs = [&] {
        return host->Log().Records(RegisterWindowMessageA("MSG_GH_SYNC"), tree.Window()).size();
    };
    host->ClearLog();
    EXPECT_EQ(waiting.Color(), -1);
    EXPECT_EQ(syncs(), 0u);
    waiting.SetColor(RGB(196, 160, 92));
    const auto afterColor = syncs();
    EXPECT_GE(afterColor, 1u);
    waiting.SetVisible(true);
    EXPECT_GT(syncs(), afterColor);

    const ghCADTree plain(host->Window("Large data.1104"));
    const auto plainItem = plain.ItemByPath("Plain item");
    const auto* unknown = dynamic_cast<const ghCADTreeItem*>(plainItem.get());
    ASSERT_NE(unknown, nullptr);
    EXPECT_FALSE(unknown->Visible());
    EXPECT_EQ(unknown->Color(), 0);
}

TEST_F(HostControls, SearchesTellTheHostsControlsFromOthersOfTheirClass) {
    const HWND cad = host->Window("CAD"), large = host->Window("Large data");
    EXPECT_EQ(engine::FindControl(cad, controls::kCadTree, 0, 0), host->Window("CAD.1100"));
    EXPECT_EQ(engine::FindControl(large, controls::kCadTree, 0, 0), nullptr);
    EXPECT_NE(engine::FindControl(large, engine::kTreeView, 0, 0), nullptr);
    EXPECT_EQ(engine::FindControl(cad, controls::kGroupCombo, 0, 0), host->Window("CAD.1102"));

    EXPECT_EQ(controls::FindGrid(cad, 0, 0), host->Window("CAD.1103"));
    EXPECT_EQ(controls::FindGrid(cad, ids::kLargeGrid, 0), nullptr);
    EXPECT_EQ(controls::FindGrid(host->Frame(), ids::kLargeGrid, engine::kAnyDescendant | 2u << 16),
              host->Window("Large data.1130")); // the occurrence number counts for nothing
    EXPECT_EQ(controls::FindGrid(host->Frame(), 0, 0), nullptr);
    EXPECT_EQ(controls::FindGrid(nullptr, 0, engine::kAnyDescendant), nullptr);

    EXPECT_EQ(controls::FindCadView(host->Frame()), host->Window("CAD.1101"));
    EXPECT_EQ(controls::FindCadView(large), nullptr);
    EXPECT_EQ(controls::FindCadView(nullptr), nullptr);
    for (const Misbehaviour style : {Misbehaviour::AnswerNothing, Misbehaviour::AnswerGarbage}) {
        Answer(host->Window("CAD.1103"), style);
        Answer(host->Window("CAD.1100"), style);
        EXPECT_EQ(controls::FindGrid(cad, 0, 0), nullptr);
        EXPECT_EQ(engine::FindControl(cad, controls::kCadTree, 0, 0), nullptr);
    }
}

// What a text request gives in each style of answering.
struct StyledText {
    Misbehaviour style;
    std::string text;
};

TEST_F(HostControls, TextsArriveInBothWaysAndBadOnesHarmNobody) {
    const ghOptionTree tree(host->Window("Options.1110"));
    const ghOptionTree units = tree.ItemByPath("Display|Background|Top");
    const ghGXGrid grid(host->Window("CAD.1103"));
    const ghRibCustomiser widget(host->Window("Customise ribbon.1120"));
    ASSERT_TRUE(widget.Select("Sketch"));
    const StyledText styles[] = {
        {Misbehaviour::AnswerByPointer, ""}, // the proper text
        {Misbehaviour::AnswerTooLong, std::string(1023, 'l')},
        {Misbehaviour::AnswerUnterminated, std::string(1023, 'u')},
        {Misbehaviour::AnswerUnreadable, ""},
        {Misbehaviour::AnswerWithoutEnd, std::string(100, 'p')},
        {Misbehaviour::AnswerNothing, ""},
        {Misbehaviour::Answer165, ""},
        {Misbehaviour::AnswerGarbage, ""},
    };
    for (const auto& [style, text] : styles) {
        SCOPED_TRACE(static_cast<int>(style));
        for (const HWND window : {tree.Window(), grid.Window(), widget.Window()}) {
            Answer(window, style);
        }
        const bool proper = style == Misbehaviour::AnswerByPointer;
        EXPECT_EQ(units.Label(), proper ? "Top" : text);
        EXPECT_EQ(units.Value(), proper ? "white" : text);
        EXPECT_EQ(grid.CellText(1, 3), proper ? "mm" : text);
        EXPECT_EQ(widget.Selected(), proper ? "Sketch" : text);
        EXPECT_EQ(grid.IsReadOnly(1, 1), proper);
    }
}

TEST_F(HostControls, NonsenseAboutItemsEndsEveryWalk) {
    const ghOptionTree tree(host->Window("Options.1110"));
    const ghGXGrid grid(host->Window("CAD.1103"));
    for (const Misbehaviour style : {Misbehaviour::Answer165, Misbehaviour::AnswerGarbage}) {
        Answer(tree.Window(), style);
        EXPECT_FALSE(tree.ItemByPath("General|Units").IsValidItem()); // each item is its own sibling
        EXPECT_TRUE(tree.RootItem().IsValidItem());
        EXPECT_FALSE(tree.RootItem().IsCheckbox());
        Answer(grid.Window(), style);
        EXPECT_FALSE(grid.SetCellText(1, 2, "50"));
    }
    Answer(grid.Window(), Misbehaviour::Answer165);
    EXPECT_EQ(grid.RowsCount(), 165);
    Answer(tree.Window(), Misbehaviour::AnswerNothing);
    EXPECT_FALSE(tree.RootItem().IsValidItem());
    EXPECT_FALSE(tree.ItemByPath("").IsValidItem());
}

} // namespace
