// Toolbars and popup bars of another program, and their buttons.
#include "controlbars/context_menu.h"
#include "controlbars/ghBCGPopupMenuButton.h"
#include "controlbars/ghBCGProPopupMenuButton.h"
#include "controlbars/ghToolbar.h"
#include "hostlink/module_instance.h"
#include "support/sample_host.h"
#include "support/this_module.h"

#include <gmock/gmock.h>

#include <future>

namespace {

using sample_host::LogRecord;
using support::Eventually;
using support::SampleHost;
using testing::ElementsAre;
using testing::Field;
using testing::IsEmpty;
using testing::SizeIs;
namespace ids = sample_host::ids;

template <class Button>
bool Is(const ghControlBarItem& item) {
    return typeid(item) == typeid(Button);
}

class ToolbarTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        hostlink::SetModuleInstance(support::ThisModule());
        s_host = std::make_unique<SampleHost>("--page context-menus");
        ASSERT_NE(s_host->WaitForWindow("Context menus"), nullptr);
    }
    static void TearDownTestSuite() { s_host.reset(); }

    static const SampleHost& Host() { return *s_host; }
    static ghToolbar Bar(const std::string& name) { return ghToolbar(s_host->Window(name)); }
    static ghToolbar Standard() { return Bar("Frame.1080"); }
    static ghToolbar Draw() { return Bar("Frame.1081"); }
    static ghToolbar Modify() { return Bar("Frame.1082"); }
    static ghBaseWindow Area(int id) {
        return ghBaseWindow(s_host->Window("Context menus." + std::to_string(id)));
    }

    static int IndexOf(const ghControlBar& bar, const char* caption, int id) {
        return static_cast<const ghToolbarButton&>(*bar.GetItemByID(caption, id)).Index();
    }
    // Whether the frame gets the command, as the first one since the log was cleared.
    static bool Commanded(unsigned command) {
        const auto commands = [] { return s_host->Log().Records(WM_COMMAND, s_host->Frame()); };
        return Eventually([&] { return !commands().empty(); }) && LOWORD(commands()[0].wParam) == command;
    }
    static RECT AreaOf(const ghToolbar& bar, int index) {
        return controlbars::ReadButtonRectangle(bar.Host(), index).value_or(RECT{});
    }

private:
    static inline std::unique_ptr<SampleHost> s_host;
};

TEST_F(ToolbarTest, ButtonsAreFoundByIdElseByTheBeginningOfTheirText) {
    const ghToolbar standard = Standard();
    EXPECT_EQ(standard.ItemsCount(), 9);
    EXPECT_EQ(IndexOf(standard, "Save", ids::kFileOpen), 1);
    EXPECT_EQ(IndexOf(standard, "Sa", 0), 3);
    EXPECT_EQ(IndexOf(standard, "Sa", 9999), 3) << "no button has the id";
    EXPECT_EQ(IndexOf(standard, "sa", 0), -1);
    EXPECT_EQ(IndexOf(standard, "Saved", 0), -1);
    EXPECT_EQ(IndexOf(standard, "", 9999), -1);
    EXPECT_EQ(IndexOf(standard, "Meas", 0), 8) << "by string index, without a command";
    EXPECT_EQ(IndexOf(standard, "Print", 0), 4) << "by string index, with a command";
    EXPECT_EQ(IndexOf(Draw(), "Circle", 0), 1) << "a plain string index";
    EXPECT_EQ(IndexOf(Draw(), "", ids::kDrawArc), 5);
    EXPECT_FALSE(standard.GetItemByID("none", 0)->IsValid());
    EXPECT_FALSE(standard.GetItem(9)->IsValid());
    EXPECT_FALSE(standard.GetItem(-1)->IsValid());
}

TEST_F(ToolbarTest, ATextThatIsTooLongHidesItsButtonAlone) {
    const SampleHost host("--page many-items");
    ASSERT_NE(host.WaitForWindow("Many items.1088"), nullptr);
    const ghToolbar many(host.Window("Many items.1088"));
    ASSERT_EQ(many.ItemsCount(), 200);
    EXPECT_EQ(IndexOf(many, "Long", 0), -1);
    EXPECT_EQ(IndexOf(many, "Long", ids::kFirstManyButton + 199), 199);
    EXPECT_EQ(IndexOf(many, "Button 198", 0), 198);
}

TEST_F(ToolbarTest, ButtonsTellTheirStateAndMissingOnesNone) {
    const ghToolbar standard = Standard();
    EXPECT_TRUE(standard.GetItemByID("Save", 0)->Enabled());
    EXPECT_FALSE(standard.GetItemByID("Print", 0)->Enabled());
    EXPECT_TRUE(standard.GetItemByID("Open", 0)->HasSubItems());
    EXPECT_TRUE(standard.GetItemByID("Grid", 0)->IsCheckable());
    EXPECT_FALSE(standard.GetItemByID("Grid", 0)->Checked());
    EXPECT_FALSE(standard.GetItemByID("Save", 0)->IsCheckable());
    EXPECT_TRUE(Draw().GetItemByID("Circle", 0)->Enabled()) << "the bit means disabled here";
    EXPECT_FALSE(Draw().GetItemByID("Spline", 0)->Enabled());
    EXPECT_TRUE(Modify().GetItemByID("Snap", 0)->Checked());
    for (const ghToolbar& bar : {standard, Draw()}) {
        EXPECT_FALSE(bar.GetItem(99)->Enabled());
        EXPECT_FALSE(bar.GetItem(99)->Checked());
        EXPECT_FALSE(bar.GetItem(99)->HasSubItems());
    }
}

TEST_F(ToolbarTest, AnObjectMadeFromAWindowEndsTheCustomisationModeACopyDoesNot) {
    const UINT message = RegisterWindowMessageA("BCGTOOLBAR_SET_CUSTOMIZE_MODE");
    Host().ClearLog();
    const ghToolbar draw = Draw();
    draw.GetItem(0)->Enabled();
    EXPECT_THAT(Host().Log().Records(message),
                ElementsAre(testing::AllOf(Field(&LogRecord::wParam, 0u), Field(&LogRecord::lParam, 0u))));
}

TEST_F(ToolbarTest, AClickGoesToAPointInsideTheButton) {
    const ghToolbar draw = Draw();
    const RECT circle = AreaOf(draw, 1);
    Host().ClearLog();
    draw.GetItem(1)->Click(1, 3, 2);
    EXPECT_TRUE(Commanded(ids::kDrawCircle));
    const auto pressed = Host().Log().Records(WM_LBUTTONDOWN, draw.Window());
    ASSERT_THAT(pressed, SizeIs(1));
    EXPECT_EQ(pressed[0].lParam, static_cast<std::uint64_t>(MAKELPARAM(circle.left + 3, circle.top + 2)));
    EXPECT_EQ(pressed[0].delivery, sample_host::Delivery::Posted);
}

TEST_F(ToolbarTest, AMarkIsSetByAClickAndOnlyIfItDiffers) {
    const auto ortho = Draw().GetItemByID("Ortho", 0);
    EXPECT_TRUE(ortho->IsCheckable());
    ortho->SetChecked(true);
    EXPECT_TRUE(ortho->Checked());
    Host().ClearLog();
    ortho->SetChecked(true);
    EXPECT_TRUE(ortho->Checked());
    EXPECT_THAT(Host().Log().Records(WM_LBUTTONDOWN),
                ElementsAre(testing::AllOf(
                    Field(&LogRecord::window, reinterpret_cast<std::uintptr_t>(Host().Frame())),
                    Field(&LogRecord::lParam, static_cast<std::uint64_t>(MAKELPARAM(1, 1))))));
    ortho->SetChecked(false);
    EXPECT_FALSE(ortho->Checked());
}

TEST_F(ToolbarTest, APlainPopupIsOpenedByTheArrowAndWalkedWithKeys) {
    const ghToolbar modify = Modify();
    const RECT hatch = AreaOf(modify, 3);
    Host().ClearLog();
    const auto popup = modify.GetItemByID("Hatch", 0)->Expand();
    ASSERT_NE(popup, nullptr);
    const auto pressed = Host().Log().Records(WM_LBUTTONDOWN, modify.Window());
    ASSERT_THAT(pressed, SizeIs(1));
    EXPECT_EQ(pressed[0].lParam, static_cast<std::uint64_t>(MAKELPARAM(hatch.right - 2, hatch.bottom - 2)));

    const auto dots = popup->GetItemByID("Dots", 0);
    EXPECT_TRUE(Is<ghBCGPopupMenuButton>(*dots));
    dots->Click(1, 1, 1);
    EXPECT_TRUE(Commanded(ids::kDrawHatchDots));
    EXPECT_FALSE(IsWindow(popup->Window()));
    EXPECT_EQ(Host().Log().Records(WM_KEYDOWN).back().wParam, static_cast<std::uint64_t>(VK_RETURN));
}

TEST_F(ToolbarTest, AProfessionalPopupIsClickedWithTheMouse) {
    const auto popup = Draw().GetItemByID("Arc", 0)->Expand();
    ASSERT_NE(popup, nullptr);
    const auto tangent = popup->GetItemByID("Tangent", 0);
    EXPECT_TRUE(Is<ghBCGProPopupMenuButton>(*tangent));
    EXPECT_TRUE(tangent->HasSubItems());
    Host().ClearLog();
    tangent->Click(1, 1, 1);
    EXPECT_TRUE(Commanded(ids::kDrawArcTangent));
    EXPECT_THAT(Host().Log().Records(WM_KEYDOWN), IsEmpty());
}

TEST_F(ToolbarTest, ContextMenusOfBothKindsAreCaughtFoundAgainAndClosed) {
    for (const int id : {int{ids::kOwnMenuArea}, int{ids::kProfessionalMenuArea}}) {
        SCOPED_TRACE(id);
        const ghBaseWindow area = Area(id);
        EXPECT_EQ(controlbars::FindCurrentContextMenu(area), nullptr);
        const auto menu = controlbars::OpenContextMenu(area, 10, 10);
        ASSERT_NE(menu, nullptr);
        EXPECT_EQ(menu->ItemsCount(), 7);
        const auto found = controlbars::FindCurrentContextMenu(area);
        ASSERT_NE(found, nullptr);
        EXPECT_EQ(found->Window(), menu->Window());

        const auto submenu = menu->GetItemByID("Hatch", 0)->Expand();
        ASSERT_NE(submenu, nullptr);
        EXPECT_NE(submenu->Window(), menu->Window());
        EXPECT_EQ(submenu->ItemsCount(), 2);
        menu->CloseMenu();
        EXPECT_TRUE(Eventually([&] { return !IsWindow(menu->Window()); }));
        EXPECT_FALSE(menu->GetItem(0)->IsValid());
    }
}

// Chooses an entry that never becomes hot, until something else ends that.
class EndlessWalk {
public:
    explicit EndlessWalk(std::unique_ptr<ghControlBarItem> separator)
        : m_click(std::async(std::launch::async, [item = std::move(separator)] { item->Click(1, 1, 1); })) {}

    bool EndsWithin(std::chrono::seconds time) const {
        return m_click.wait_for(time) == std::future_status::ready;
    }

private:
    std::future<void> m_click;
};

TEST_F(ToolbarTest, AWalkThroughAPopupEndsWithThePopup) {
    const auto popup = controlbars::OpenContextMenu(Area(ids::kOwnMenuArea), 10, 10);
    ASSERT_NE(popup, nullptr);
    const EndlessWalk walk(popup->GetItem(2));
    EXPECT_FALSE(walk.EndsWithin(std::chrono::seconds(1)));
    Host().ClearLog();
    SampleHost::Misbehave(GetParent(popup->Window()), sample_host::Misbehaviour::DestroyLater, 1);
    EXPECT_TRUE(walk.EndsWithin(std::chrono::seconds(30)));
    const auto keys = Host().Log().Records(WM_KEYDOWN);
    EXPECT_TRUE(
        std::none_of(keys.begin(), keys.end(), [](const LogRecord& key) { return key.wParam == VK_RETURN; }));
}

TEST_F(ToolbarTest, AWalkThroughAPopupEndsWhenItIsHidden) {
    const auto popup = controlbars::OpenContextMenu(Area(ids::kOwnMenuArea), 10, 10);
    ASSERT_NE(popup, nullptr);
    const EndlessWalk walk(popup->GetItem(2));
    EXPECT_FALSE(walk.EndsWithin(std::chrono::seconds(1)));
    ShowWindow(GetParent(popup->Window()), SW_HIDE);
    EXPECT_TRUE(walk.EndsWithin(std::chrono::seconds(30)));
    SendMessageA(GetParent(popup->Window()), WM_CLOSE, 0, 0);
}

TEST_F(ToolbarTest, AWalkThroughAPopupEndsWithTheHost) {
    auto host = std::make_unique<SampleHost>();
    const auto popup = ghToolbar(host->Window("Frame.1081")).GetItemByID("Arc", 0)->Expand();
    ASSERT_NE(popup, nullptr);
    const EndlessWalk walk(std::make_unique<ghBCGPopupMenuButton>(ghToolbar(popup->Window()), 2));
    EXPECT_FALSE(walk.EndsWithin(std::chrono::seconds(1)));
    host.reset();
    EXPECT_TRUE(walk.EndsWithin(std::chrono::seconds(30)));
}

} // namespace
