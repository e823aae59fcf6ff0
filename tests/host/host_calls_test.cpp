// The shortest calls to the windows of other programs.
#include "explain/window_call.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <map>
#include <string>

#include "engine/enumerate.h"
#include "explain/call_text.h"
#include "explain/window_facts.h"
#include "support/program.h"
#include "support/sample_host.h"

namespace {

using explain::CallFinder;
using explain::CallTo;
using explain::Follow;
using sample_host::Misbehaviour;
using support::Eventually;
using support::SampleHost;
using testing::ElementsAre;
using testing::SizeIs;
namespace ids = sample_host::ids;

std::string VBScript(const explain::WindowCall& found) {
    return found.call.empty() ? found.obstacle : explain::CallText(found.call, explain::Language::VBScript);
}

// Those of its top-level windows and of all below them.
std::vector<HWND> WindowsOf(DWORD processId) {
    std::vector<HWND> windows;
    engine::EnumerateWindows(nullptr, [&](HWND window) {
        DWORD owner = 0;
        GetWindowThreadProcessId(window, &owner);
        if (owner == processId) {
            windows.push_back(window);
            engine::EnumerateWindows(window, [&](HWND child) {
                windows.push_back(child);
                return true;
            });
        }
        return true;
    });
    return windows;
}

TEST(HostCalls, EveryWindowIsReachedByItsCall) {
    const SampleHost host("--page twins --page cad --page tabs --page options --page trees --page list-views "
                          "--page list-boxes --page combo-boxes --page check-boxes --page panels "
                          "--page context-menus --page ribbon --page save-drawing --page open-drawing "
                          "--page settings");
    ASSERT_NE(host.WaitForWindow("Settings"), nullptr);
    const std::vector<HWND> windows = WindowsOf(host.ProcessId());
    ASSERT_GE(windows.size(), 100u);
    CallFinder finder;
    std::map<std::string, HWND> seen;
    for (const HWND window : windows) {
        const explain::WindowCall found = finder.CallTo(window);
        const std::string text = VBScript(found);
        EXPECT_TRUE(found.isVerified) << text << ", class " << explain::FactsOf(window).className;
        EXPECT_EQ(Follow(found.call), window) << text;
        EXPECT_TRUE(seen.emplace(text, window).second) << text << " leads to two windows";
    }
    // What a finder keeps from one window to the next changes nothing.
    for (std::size_t index = 0; index < windows.size(); index += 9) {
        EXPECT_EQ(seen[VBScript(CallTo(windows[index]))], windows[index]);
    }
}

TEST(HostCalls, AreShortAndHaveTheKindOfObject) {
    const SampleHost host("--page twins --page cad --page options --page open-drawing");
    struct Expected {
        const char* window;
        const char* kind;
        const char* call;
    };
    const Expected kExpected[] = {
        {"Frame", "BaseWindow", R"(gh.MainWindow("sample_host"))"},
        {"Frame.1080", "ControlBar", R"(gh.MainWindow("sample_host").Toolbar)"},
        {"Frame.1082", "ControlBar", R"(gh.MainWindow("sample_host").Toolbar("", 1082))"},
        {"CAD", "BaseWindow", R"(gh.MainWindow("sample_host").ActiveDocument)"},
        {"CAD.1100", "CADTree", R"(gh.MainWindow("sample_host").CADTree(1100, &H40))"},
        {"CAD.1101", "CADView", R"(gh.MainWindow("sample_host").CADView)"},
        {"CAD.1102", "GroupCombo", R"(gh.MainWindow("sample_host").GroupCombo(1102, &H40))"},
        {"CAD.1103", "GXGrid", R"(gh.MainWindow("sample_host").GXGrid(1103, &H40))"},
        {"Options.1110", "OptionTree", R"(gh.MainWindow("sample_host", "Options", "", &H200).OptionTree)"},
        {"Twins.Shown.1010", "CheckBox",
         R"(gh.MainWindow("sample_host", "Twins", "", &H200).CheckBox("", 1010, &H40))"},
        {"Twins.Hidden.1001", "BaseWindow",
         R"(gh.MainWindow("sample_host", "Twins", "", &H200).ChildDialog("", 1040, &H80).Edit(1001, &H80))"},
        {"Open drawing", "OpenSaveDialog", R"(gh.MainWindow("sample_host").OpenSaveDialog)"},
    };
    host.WaitForWindow("Open drawing");
    for (const Expected& expected : kExpected) {
        const explain::WindowCall found = CallTo(host.Window(expected.window));
        EXPECT_EQ(VBScript(found), expected.call) << expected.window;
        EXPECT_EQ(found.kind, expected.kind) << expected.window;
        EXPECT_EQ(explain::KindOf(host.Window(expected.window)), expected.kind) << expected.window;
    }
}

TEST(HostCalls, TwoRunningProgramsAreToldApart) {
    const SampleHost first;
    const SampleHost second;
    for (const SampleHost* host : {&first, &second}) {
        const HWND bar = host->Window("Frame.1080");
        const explain::WindowCall found = CallTo(bar);
        EXPECT_EQ(Follow(found.call), bar) << VBScript(found);
    }
    EXPECT_NE(VBScript(CallTo(first.Frame())), VBScript(CallTo(second.Frame())));
}

TEST(HostCalls, AProgramThatHangsIsNotWaitedFor) {
    const SampleHost host("--page cad");
    const HWND frame = host.WaitForWindow("CAD") != nullptr ? host.Frame() : nullptr;
    const HWND tree = host.Window("CAD.1100");
    const HWND grid = host.Window("CAD.1103");
    EXPECT_FALSE(explain::Programs("SAMPLE_HOST.E").at(0).isHung);
    PostMessageA(frame, RegisterWindowMessageA(sample_host::kMisbehaveMessage),
                 static_cast<WPARAM>(Misbehaviour::Busy), 120000);
    ASSERT_TRUE(Eventually([&] { return !explain::Answers(frame); }));

    const auto programs = explain::Programs("SAMPLE_HOST.E");
    ASSERT_THAT(programs, SizeIs(1));
    EXPECT_TRUE(programs[0].isHung);
    EXPECT_EQ(programs[0].name, "sample_host.exe");
    EXPECT_EQ(programs[0].processId, host.ProcessId());
    EXPECT_THAT(explain::Remarks(programs[0]), ElementsAre(testing::HasSubstr("Does not answer")));
    EXPECT_EQ(explain::KindOf(tree), "TreeControl") << "all that its class tells";
    EXPECT_EQ(explain::KindOf(grid), "BaseWindow");
    for (const HWND window : {frame, tree, grid}) {
        EXPECT_EQ(Follow(CallTo(window).call), window);
    }
    EXPECT_FALSE(explain::Answers(frame)) << "it was waited for";
}

TEST(HostCalls, OneOfThousandsOfWindowsTakesNoMinutes) {
    const SampleHost host("--many-children 5000");
    HWND top = nullptr;
    ASSERT_TRUE(Eventually([&] {
        top = FindWindowA(ids::kTreeClass, "Many children");
        return top != nullptr && IsWindowVisible(top);
    }));
    const std::vector<HWND> children = explain::ChildrenOf(top);
    HWND last = nullptr;
    engine::EnumerateWindows(top, [&](HWND window) {
        last = window;
        return true;
    });
    const ULONGLONG start = GetTickCount64();
    for (const HWND window : {children.front(), last}) {
        EXPECT_EQ(Follow(CallTo(window).call), window);
    }
    EXPECT_LT(GetTickCount64() - start, 60000u);
}

TEST(HostCalls, TopLevelWindowsAreListedAsTheyAreAsked) {
    const SampleHost host("--page twins");
    const HWND twins = host.WaitForWindow("Twins");
    const explain::WindowFacts facts = explain::FactsOf(twins);
    EXPECT_EQ(facts.className, "#32770");
    EXPECT_EQ(facts.caption, "Twins");
    EXPECT_EQ(facts.owner, host.Frame());
    EXPECT_EQ(facts.parent, nullptr);
    const explain::WindowFacts child = explain::FactsOf(host.Window("Twins.Shown.1010"));
    EXPECT_EQ(child.controlId, 1010);
    EXPECT_EQ(child.parent, host.Window("Twins.Shown"));
    EXPECT_EQ(child.owner, nullptr);
    EXPECT_THAT(explain::ChildrenOf(twins), testing::Contains(host.Window("Twins.Hidden")));
    const auto programs = explain::Programs("sample_host");
    ASSERT_THAT(programs, SizeIs(1));
    EXPECT_THAT(programs[0].windows, testing::IsSupersetOf({twins, host.Frame()}));
    EXPECT_THAT(explain::Programs("sample_host.exe.no"), testing::IsEmpty());
}

#ifdef DRIVE_WINE_PROGRAMS
TEST(OtherProgramsCalls, LeadToTheirControls) {
    const support::Program regedit("regedit.exe");
    HWND main = nullptr;
    ASSERT_TRUE(Eventually([&] {
        main = FindWindowA("RegEdit_RegEdit", nullptr);
        return main != nullptr && IsWindowVisible(main);
    }));
    for (const HWND window : WindowsOf(regedit.ProcessId())) {
        const explain::WindowCall found = CallTo(window);
        EXPECT_EQ(Follow(found.call), window) << VBScript(found);
    }
    EXPECT_EQ(VBScript(CallTo(FindWindowExA(FindWindowExA(main, nullptr, "REGEDIT", nullptr), nullptr,
                                            "SysTreeView32", nullptr))),
              R"(gh.MainWindow("regedit").TreeCtrl(2002, &H40))");
}
#endif

} // namespace
