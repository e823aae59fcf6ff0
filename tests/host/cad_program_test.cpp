// Driving the CAD page as a user does: the group combo and the view, with real input.
#include "contract_log.h"
#include "controls/ghCADView.h"
#include "controls/ghGXGrid.h"
#include "controls/ghGroupCombo.h"
#include "engine/window_finders.h"
#include "hostlink/module_instance.h"
#include "input/mouse.h"
#include "input/mouse_block.h"
#include "support/this_module.h"

#include <gmock/gmock.h>

namespace {

using sample_host::LogRecord;
using sample_host::Misbehaviour;
using support::Eventually;
using support::Requests;
using support::SampleHost;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
namespace ids = sample_host::ids;

constexpr char kCamera[] = "yaw=0.00 pitch=0.00 zoom=1.000";

int GlobalAtoms() {
    int count = 0;
    for (ATOM atom = 0xC000; atom != 0; ++atom) {
        char name[256];
        count += GlobalGetAtomNameA(atom, name, sizeof name) != 0;
    }
    return count;
}

class CadProgram : public testing::Test {
protected:
    static void SetUpTestSuite() {
        hostlink::SetModuleInstance(support::ThisModule());
        input::SetAllowMouseBlocks(false);
        host = std::make_unique<SampleHost>("--page cad");
        host->WaitForWindow("CAD.1103"); // the last one
    }
    static void TearDownTestSuite() { host.reset(); }
    void SetUp() override { host->ClearLog(); }
    void TearDown() override {
        SampleHost::Misbehave(host->Window("CAD.1101"), Misbehaviour::AnswerProperly);
        SampleHost::Misbehave(host->Window("CAD.1102"), Misbehaviour::AnswerProperly);
        EXPECT_FALSE(host->HasEnded());
    }

    static ghCADView View() { return ghCADView(host->Window("CAD.1101")); }
    static ghGroupCombo Combo() { return ghGroupCombo(host->Window("CAD.1102")); }

    static std::string Status() {
        char text[256] = "";
        SendMessageA(host->Window("Frame.1090"), WM_GETTEXT, sizeof text, reinterpret_cast<LPARAM>(text));
        return text;
    }

    static inline std::unique_ptr<SampleHost> host;
};

TEST_F(CadProgram, GroupComboBelongsItemsToTheHeadingsAboveThem) {
    const ghGroupCombo combo = Combo();
    EXPECT_EQ(combo.ItemsCount(), 10);
    EXPECT_EQ(combo.Text(), "Steel");
    EXPECT_EQ(combo.HeadingText(), "Metals");
    EXPECT_EQ(combo.ItemText(5), "Plastics");
    EXPECT_EQ(combo.HeadingOfItem(5), "Plastics");
    EXPECT_EQ(combo.HeadingOfItem(9), "Plastics");
    for (const int index : {-1, 10}) {
        EXPECT_EQ(combo.ItemText(index), "");
        EXPECT_EQ(combo.HeadingOfItem(index), "");
    }
    SampleHost::Misbehave(combo.Window(), Misbehaviour::AnswerGarbage);
    EXPECT_EQ(combo.HeadingOfItem(1), "");
    EXPECT_FALSE(combo.SelectItemByName("Metals", "Brass"));
}

TEST_F(CadProgram, GroupComboSelectsByIndexAndByBothNames) {
    const ghGroupCombo combo = Combo();
    EXPECT_FALSE(combo.SelectItemByName("Metals", "PEEK"));
    for (const UINT message : {UINT{CB_SETCURSEL}, UINT{WM_SETFOCUS}})
        EXPECT_THAT(host->Log().Records(message, combo.Window()), IsEmpty());
    ASSERT_TRUE(combo.SelectItemByName("Plastics", "Custom"));
    EXPECT_EQ(combo.Text(), "Custom");
    EXPECT_EQ(combo.HeadingText(), "Plastics");
    const auto queries = Requests(*host, 0x8002, combo.Window());
    ASSERT_THAT(queries, SizeIs(2));
    EXPECT_EQ(queries[1].wParam, 16u);
    EXPECT_EQ(std::string(queries[1].record.begin(), queries[1].record.end()),
              std::string("Plastics\0Custom\0", 16));
    std::vector<std::uint64_t> notifications;
    for (const LogRecord& record : host->Log().Records(WM_COMMAND, host->Window("CAD"))) {
        if (record.delivery == sample_host::Delivery::Posted) {
            notifications.push_back(record.wParam);
            EXPECT_EQ(record.lParam, reinterpret_cast<std::uintptr_t>(combo.Window()));
        }
    }
    EXPECT_THAT(notifications, ElementsAre(MAKEWPARAM(ids::kMaterial, CBN_SELENDOK),
                                           MAKEWPARAM(ids::kMaterial, CBN_SELCHANGE)));
    // The program has taken note: with density 1 the mass is the volume.
    const ghGXGrid grid(host->Window("CAD.1103"));
    EXPECT_EQ(grid.CellText(8, 2), grid.CellText(7, 2));

    EXPECT_FALSE(combo.SelectItem(5)); // a heading
    EXPECT_FALSE(combo.SelectItem(10));
    // A query that does not fit is answered by 0, and item 0 is a heading here.
    EXPECT_FALSE(combo.SelectItemByName(std::string(1024, 'x'), "Custom"));
    EXPECT_EQ(combo.Text(), "Custom");
    EXPECT_TRUE(combo.SelectItem(3));
    EXPECT_EQ(combo.Text(), "Steel");
}

TEST_F(CadProgram, RecordedClicksHitTheSamePartAtAnotherViewSize) {
    ghCADView view = View();
    view.SetCameraPosition(kCamera, 500, 400);
    ASSERT_EQ(view.Width(), 500);
    ASSERT_EQ(view.Height(), 400);
    // From the front the left wall stands at x = -48 mm; 400 / 240 pixels a millimetre.
    view.Click(input::kLeftButton, {250 - 80, 190}, {500, 400}, 0);
    EXPECT_TRUE(Eventually([] { return Status() == "Picked Left wall"; })) << Status();

    view.Click(input::kLeftButton, {2, 2}, {0, 0}, 0);
    EXPECT_TRUE(Eventually([] { return Status() == "Nothing picked"; })) << Status();
    view.SetCameraPosition(kCamera, 380, 250);
    ASSERT_EQ(view.Width(), 380);
    view.Click(input::kLeftButton, {250 - 80, 190}, {500, 400}, 0);
    EXPECT_TRUE(Eventually([] { return Status() == "Picked Left wall"; })) << Status();
    view.SetCameraPosition(kCamera, 500, 0); // both are needed
    EXPECT_EQ(view.Width(), 380);

    // A drag orbits: half a degree a pixel.
    view.MouseDown(input::kLeftButton, {100, 100}, {0, 0}, 0);
    view.MouseMove({140, 120}, {0, 0}, 0);
    view.MouseUp(input::kLeftButton, {140, 120}, {0, 0}, 0);
    EXPECT_EQ(view.CameraPosition(), "yaw=20.00 pitch=10.00 zoom=1.000");
}

TEST_F(CadProgram, ViewOpensItsContextMenuAtTheRecordedPoint) {
    ghCADView view = View();
    view.SetCameraPosition(kCamera, 500, 400);
    view.Click(input::kLeftButton, {2, 2}, {0, 0}, 0);           // nothing is selected
    const auto menu = view.ContextMenu({340, 380}, {1000, 800}); // the left wall, recorded at twice the size
    ASSERT_NE(menu, nullptr);
    ASSERT_THAT(host->Log().Records(WM_ENTERMENULOOP, view.Window()), SizeIs(1));
    PostMessageA(view.Window(), WM_KEYDOWN, VK_ESCAPE, 1);
    ASSERT_TRUE(Eventually([] { return !host->Log().Records(WM_EXITMENULOOP).empty(); }));
    // The program has picked the part under the cursor: its entry hides it.
    SendMessageA(view.Window(), WM_COMMAND, ids::kPartHide, 0);
    view.Click(input::kLeftButton, {170, 190}, {500, 400}, 0);
    EXPECT_TRUE(Eventually([] { return Status().starts_with("Picked") || Status() == "Nothing picked"; }));
    EXPECT_NE(Status(), "Picked Left wall");
    SendMessageA(view.Window(), WM_COMMAND, ids::kPartsShowAll, 0);
}

TEST_F(CadProgram, CameraTextsTravelAsAtomsAndLeaveNoneBehind) {
    ghCADView view = View();
    view.SetSynchronization(false);
    const int atoms = GlobalAtoms();
    const std::string longest = std::string(kCamera) + " " + std::string(255 - sizeof kCamera, 'n');
    ASSERT_EQ(longest.size(), 255u);
    view.SetCameraPosition(longest, 0, 0);
    EXPECT_EQ(view.CameraPosition(), longest);
    host->ClearLog();
    for (const std::string& text :
         {longest + "x", std::string(259, 'x'), std::string(260, 'x'), std::string()}) {
        view.SetCameraPosition(text, 0, 0);
    }
    EXPECT_THAT(host->Log().Records(RegisterWindowMessageA("MSG_HA_SetViewPosition")), IsEmpty());
    EXPECT_EQ(view.CameraPosition(), longest);

    SampleHost::Misbehave(view.Window(), Misbehaviour::AnswerGarbage); // an atom that does not exist
    EXPECT_EQ(view.CameraPosition(), "");
    SampleHost::Misbehave(view.Window(), Misbehaviour::AnswerNothing);
    EXPECT_EQ(view.CameraPosition(), "");
    SampleHost::Misbehave(view.Window(), Misbehaviour::AnswerProperly);

    for (int round = 0; round < 1000; ++round) {
        const std::string camera = "yaw=" + std::to_string(round / 100) + ".00 pitch=5.00 zoom=1.000";
        if (round % 100 == 0) {
            view.SetCameraPosition(camera, 0, 0);
        }
        ASSERT_EQ(view.CameraPosition(), camera);
        ASSERT_EQ(engine::FindWindowByName(view.Window(), "CAD.1101"), view.Window());
        ASSERT_EQ(engine::FindWindowByName(view.Window(), "missing " + std::to_string(round)), nullptr);
    }
    EXPECT_EQ(GlobalAtoms(), atoms);
    EXPECT_EQ(engine::FindWindowByName(view.Window(), std::string(256, 'x')), nullptr);
}

TEST_F(CadProgram, CameraIsReadOnceTheViewIsEnabled) {
    ghCADView view = View();
    view.SetSynchronization(false);
    view.SetCameraPosition(kCamera, 0, 0);
    host->ClearLog();
    SampleHost::Misbehave(view.Window(), Misbehaviour::Disable, 500);
    EXPECT_EQ(view.CameraPosition(), kCamera);
    const auto enabled = host->Log().Records(WM_ENABLE, view.Window());
    ASSERT_THAT(enabled, SizeIs(2));
    const auto asked = host->Log().Records(RegisterWindowMessageA("MSG_HA_GetViewPosition"), view.Window());
    ASSERT_THAT(asked, SizeIs(1));
    EXPECT_GE(asked[0].number, enabled[1].number);
}

TEST_F(CadProgram, NamesThatTheHostAnswersWithoutAWindowFindNothing) {
    const HWND view = host->Window("CAD.1101"), frame = host->Frame();
    for (const Misbehaviour answer :
         {Misbehaviour::AnswerNothing, Misbehaviour::AnswerGarbage, Misbehaviour::Answer165}) {
        SampleHost::Misbehave(frame, answer);
        // Any number may happen to be some window's handle.
        const HWND found = engine::FindWindowByName(view, "CAD.1101");
        EXPECT_TRUE(found == nullptr || (IsWindow(found) && found != view));
    }
    SampleHost::Misbehave(frame, Misbehaviour::AnswerProperly);
    EXPECT_EQ(engine::FindWindowByName(view, "cad.1101"), view);
}

} // namespace
