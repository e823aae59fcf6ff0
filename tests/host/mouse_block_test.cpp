// Mouse input to another program, and the block of the user's mouse: by one script, by two at once, and by
// one that dies.
#include "engine/wait_loop.h"
#include "hostlink/module_instance.h"
#include "hostlink/mouse_block_hook.h"
#include "hostlink/registered_messages.h"
#include "hostlink/shared_section.h"
#include "input/mouse.h"
#include "input/mouse_block.h"
#include "support/program.h"
#include "support/sample_host.h"
#include "support/this_module.h"

#include <gmock/gmock.h>

#include <cstdlib>
#include <utility>

namespace {

using hostlink::shared;
using sample_host::LogRecord;
using support::Eventually;
using support::SampleHost;
using testing::ElementsAre;
using testing::Pair;
using testing::SizeIs;

constexpr char kWindowVariable[] = "GHOSTHAND_TEST_WINDOW";

// Not a test: the script of a process of its own. It clicks and then waits until it is ended.
TEST(OtherScript, DISABLED_ClicksAndWaits) {
    hostlink::SetModuleInstance(support::ThisModule());
    const auto number = std::stoull(std::getenv(kWindowVariable), nullptr, 16);
    input::Click(ghBaseWindow(hostlink::ToWindow(number)), 1, 5, 5, 0, true);
    for (;;) {
        engine::PumpOneStep();
    }
}

std::string FileOf(HMODULE module) {
    char file[MAX_PATH] = "";
    GetModuleFileNameA(module, file, sizeof file);
    return file;
}

support::Program StartOtherScript(HWND window) {
    char number[20] = "";
    std::snprintf(number, sizeof number, "%llX",
                  static_cast<unsigned long long>(hostlink::FromHandle(window)));
    SetEnvironmentVariableA(kWindowVariable, number);
    std::string commandLine = "\"";
    commandLine += FileOf(nullptr) + "\" \"" + FileOf(support::ThisModule()) + "\"";
    commandLine += " --gtest_filter=OtherScript.* --gtest_also_run_disabled_tests --gtest_brief=1";
    return support::Program(commandLine);
}

// Whether the cursor follows the user's hand.
bool UserCanMove() {
    static int target = 0; // never where it was taken before: the cursor must not be there already
    target = target == 0x8000 ? 0x9000 : 0x8000;
    INPUT hand{};
    hand.type = INPUT_MOUSE;
    hand.mi.dx = hand.mi.dy = target;
    hand.mi.dwFlags = MOUSEEVENTF_MOVE | MOUSEEVENTF_ABSOLUTE;
    SendInput(1, &hand, sizeof hand);
    POINT cursor{};
    GetCursorPos(&cursor);
    return std::abs(cursor.x - MulDiv(target, GetSystemMetrics(SM_CXSCREEN), 0x10000)) <= 1;
}

class MouseBlockTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        hostlink::SetModuleInstance(support::ThisModule());
        s_host = std::make_unique<SampleHost>();
    }
    static void TearDownTestSuite() { s_host.reset(); }

    // As it is when the module is first loaded on the desktop.
    void SetUp() override {
        shared.mouseBlocked = 0;
        shared.mouseBlockHook = 0;
        input::SetAllowMouseBlocks(true);
        s_host->ClearLog();
    }
    void TearDown() override { input::UnblockMouse(); }

    static ghBaseWindow Edit() { return ghBaseWindow(s_host->Window("Document 3.1001")); }
    static std::vector<LogRecord> Releases() { return s_host->Log().Records(WM_LBUTTONUP, Edit().Window()); }
    static void ClickForReal() { input::Click(Edit(), 1, 10, 20, 0, true); }

    static inline std::unique_ptr<SampleHost> s_host;
};

TEST_F(MouseBlockTest, PostedClicksReachTheHostWithTheModifiersHeld) {
    input::Click(Edit(), 1, 10, 20, input::kControlKey | input::kShiftKey);
    std::vector<std::pair<UINT, std::uint64_t>> seen;
    for (const LogRecord& record : s_host->Log().Records()) {
        const bool isKey = record.message == hostlink::SetKeyStateMessage();
        if (isKey || record.message == WM_LBUTTONDOWN || record.message == WM_LBUTTONUP) {
            seen.emplace_back(isKey ? 0 : record.message, record.wParam);
        }
    }
    EXPECT_THAT(seen, ElementsAre(Pair(0, 0xF011), Pair(0, 0xF010), Pair(WM_LBUTTONDOWN, 0x0D),
                                  Pair(WM_LBUTTONUP, 0x0C), Pair(0, 0x0011), Pair(0, 0x0010)));
    EXPECT_EQ(Releases()[0].lParam, 0x0014000Au);
    EXPECT_EQ(shared.remoteHook, 0u);
    EXPECT_EQ(shared.mouseBlocked, 0) << "by posted input";
}

TEST_F(MouseBlockTest, IsLiftedForGood) {
    ClickForReal();
    ASSERT_THAT(Releases(), SizeIs(1));
    EXPECT_EQ(Releases()[0].lParam, 0x0014000Au);
    EXPECT_FALSE(UserCanMove());
    EXPECT_NE(FindWindowA("SplashScreen", nullptr), nullptr);
    input::SetAllowMouseBlocks(false);
    EXPECT_FALSE(UserCanMove()) << "the permission does not touch a block in force";
    input::SetAllowMouseBlocks(true);
    ClickForReal();
    EXPECT_THAT(Releases(), SizeIs(2)) << "the script's own input passes";
    EXPECT_FALSE(hostlink::InstallMouseBlockHook()) << "a second one, as of a script that came a moment late";
    // What COM does with a module that is not needed any more. This code goes on, in that module.
    FreeLibrary(support::ThisModule());

    const std::uint64_t hook = shared.mouseBlockHook;
    EXPECT_NE(hook, 0u);
    input::UnblockMouse();
    EXPECT_TRUE(UserCanMove());
    EXPECT_EQ(FindWindowA("SplashScreen", nullptr), nullptr);

    ClickForReal();
    EXPECT_THAT(Releases(), SizeIs(3));
    EXPECT_EQ(shared.mouseBlocked, 1);
    EXPECT_EQ(shared.mouseBlockHook, hook) << "stale, and no other hook";
    EXPECT_TRUE(UserCanMove());
    EXPECT_EQ(FindWindowA("SplashScreen", nullptr), nullptr);
}

TEST_F(MouseBlockTest, ComesOnlyWherePermitted) {
    input::SetAllowMouseBlocks(false);
    ClickForReal();
    EXPECT_THAT(Releases(), SizeIs(1));
    EXPECT_EQ(shared.mouseBlocked, 0);
    EXPECT_EQ(shared.mouseBlockHook, 0u);
    EXPECT_TRUE(UserCanMove());
}

TEST_F(MouseBlockTest, EndsWithTheScriptThatIsKilled) {
    std::uint64_t hook = 0;
    {
        const auto other = StartOtherScript(Edit().Window());
        ASSERT_TRUE(Eventually([] { return Releases().size() == 1 && shared.mouseBlocked != 0; }));
        hook = shared.mouseBlockHook;
        EXPECT_FALSE(UserCanMove());

        ClickForReal();
        EXPECT_THAT(Releases(), SizeIs(2)) << "of a second script meanwhile";
        EXPECT_EQ(shared.mouseBlockHook, hook) << "one hook for both";
        EXPECT_FALSE(UserCanMove());
    }
    EXPECT_TRUE(Eventually(UserCanMove));
    EXPECT_EQ(shared.mouseBlocked, 1) << "left behind, without a hook that heeds it";

    ClickForReal();
    EXPECT_THAT(Releases(), SizeIs(3));
    EXPECT_EQ(shared.mouseBlockHook, hook);
    EXPECT_TRUE(UserCanMove());
    input::UnblockMouse();
    EXPECT_EQ(shared.mouseBlocked, 0);
}

TEST_F(MouseBlockTest, IsLiftedByAnotherScriptToo) {
    const auto other = StartOtherScript(Edit().Window());
    ASSERT_TRUE(Eventually([] { return Releases().size() == 1 && shared.mouseBlocked != 0; }));
    EXPECT_FALSE(UserCanMove());
    input::UnblockMouse();
    EXPECT_TRUE(UserCanMove());
}

} // namespace
