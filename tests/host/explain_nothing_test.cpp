// Calls that come to nothing, in a host of its own process and in a program of the system.
#include "controls/host_control_search.h"
#include "engine/window_finders.h"
#include "engine/window_relations.h"
#include "explain/explain_nothing.h"
#include "hostlink/module_instance.h"
#include "hostlink/registered_messages.h"
#include "support/program.h"
#include "support/sample_host.h"
#include "support/this_module.h"

#include <gmock/gmock.h>

#include <windows.h>

#include <commctrl.h>

namespace {

using explain::Argument;
using explain::Explanation;
using explain::FailedCall;
using explain::Flags;
using explain::Miss;
using sample_host::LogRecord;
using sample_host::Misbehaviour;
using support::Eventually;
using support::SampleHost;
using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
namespace ids = sample_host::ids;

const explain::Call kReached = {{"MainWindow", {std::string("sample_host")}},
                                {"TreeCtrl", {std::int64_t{7}}}};

std::string FirstMiss(const Explanation& explanation) {
    if (explanation.misses.empty()) {
        return {};
    }
    const Miss& miss = explanation.misses.front();
    return miss.name + ": " + (miss.reasons.empty() ? "" : miss.reasons.front());
}

class ExplainNothing : public testing::Test {
protected:
    static void SetUpTestSuite() {
        hostlink::SetModuleInstance(support::ThisModule());
        host = std::make_unique<SampleHost>("--page trees --page list-boxes --page list-views --page tabs "
                                            "--page cad --page options --page palette");
        host->WaitForWindow("CAD.1103");
        host->WaitForWindow("Palette");
    }
    static void TearDownTestSuite() { host.reset(); }

    static Explanation Explain(const char* kind, HWND window, const char* member,
                               std::vector<Argument> arguments = {},
                               const explain::Call& reached = kReached) {
        const ULONGLONG begin = GetTickCount64();
        FailedCall call;
        call.member = member;
        call.kind = kind;
        call.window = window;
        call.arguments = std::move(arguments);
        call.reached = reached;
        const Explanation explanation = explain::ExplainNothing(call);
        EXPECT_LT(GetTickCount64() - begin, 5000u);
        return explanation;
    }
    static Explanation Explain(const char* kind, const char* window, const char* member,
                               std::vector<Argument> arguments = {},
                               const explain::Call& reached = kReached) {
        return Explain(kind, host->Window(window), member, std::move(arguments), reached);
    }
    static Argument Text(const char* text) { return std::string(text); }
    static Argument Number(std::int64_t number) { return number; }

    static inline std::unique_ptr<SampleHost> host;
};

TEST_F(ExplainNothing, NamesTheTokenOfATreePathThatFailed) {
    const Explanation typo = Explain("TreeControl", "Trees.1140", "ItemByPath", {Text("Box|hole 1")});
    EXPECT_EQ(typo.reason, "no item 'hole 1' stands directly below 'Box'");
    EXPECT_EQ(FirstMiss(typo),
              "item 'Hole 1': text 'Hole 1' is not 'hole 1': it differs only in upper and lower case");
    EXPECT_EQ(typo.line, "gh.MainWindow(\"sample_host\").TreeCtrl(7).ItemByPath(\"Box|Hole 1\")");
    EXPECT_EQ(Explain("TreeControl", "Trees.1140", "ItemByPath", {Text("Box/Hole 2")}).line,
              "gh.MainWindow(\"sample_host\").TreeCtrl(7).ItemByPath(\"Box|Hole 2\")");
    EXPECT_EQ(Explain("TreeControl", "Trees.1140", "SelectItemByPath", {Text("Box|Hole 1|x")}).reason,
              "'Hole 1' has no items below it, so 'x' is none of them");
    // The rest of the path does not lead on: there is no line that would have worked.
    const Explanation twoFaults = Explain("CADTree", "Trees.1140", "ItemByPath", {Text("Bos|Nowhere")});
    EXPECT_EQ(FirstMiss(twoFaults), "item 'Box': text 'Box' is not 'Bos'");
    EXPECT_EQ(twoFaults.line, "");
    EXPECT_EQ(Explain("TreeControl", "Trees.1140", "ItemByNumPath", {Text("1/99")}).reason,
              "'Box' has only 4 items directly below it, not 99");
    EXPECT_EQ(Explain("TreeControl", "Trees.1140", "ItemByNum", {Number(99)}).reason,
              "SysTreeView32 id 1140 has 17 items, 1 to 17; 99 is none of them");
}

TEST_F(ExplainNothing, ChangesNothingInTheHost) {
    const HWND lazy = host->Window("Trees.1142");
    const auto count = [&] { return SendMessageA(lazy, TVM_GETCOUNT, 0, 0); };
    const LRESULT before = count();
    host->ClearLog();
    Explain("TreeControl", "Trees.1142", "ItemByPath", {Text("Assembly 2|Part 1|Feature 9")});
    Explain("ControlBar", "Frame.1081", "GetItemByID", {Text("Nothing")});
    EXPECT_EQ(count(), before);
    for (const LogRecord& record : host->Log().Records()) {
        EXPECT_NE(record.message, static_cast<UINT>(TVM_EXPAND));
        EXPECT_NE(record.message, static_cast<UINT>(TVM_SELECTITEM));
        EXPECT_NE(record.message, hostlink::BCGTOOLBAR_SET_CUSTOMIZE_MODE);
    }
}

TEST_F(ExplainNothing, NamesTheItemsOfListsThatComeNearest) {
    const Explanation list = Explain("ListBox", "List boxes.1022", "SelectItemByName", {Text("Stel")});
    EXPECT_EQ(FirstMiss(list), "item 'Steel': text 'Steel' does not begin with 'Stel'");
    EXPECT_EQ(Explain("ListBox", "List boxes.1022", "SelectItem", {Number(99)}).reason,
              "ListBox id 1022 has 12 items, 0 to 11; 99 is none of them");
    EXPECT_EQ(FirstMiss(Explain("ListView", "List views.1150", "SelectItemByName", {Text("Baering")})),
              "item 'Bearing': text 'Bearing' does not begin with 'Baering'");
    EXPECT_EQ(Explain("ListView", "List views.1150", "CheckItem", {Number(1)}).reason,
              "SysListView32 id 1150 has no check boxes");
    EXPECT_EQ(FirstMiss(Explain("TabControl", "Tabs.1220", "SelectItemByName", {Text("genral")})),
              "item 'General': text 'General' does not begin with 'genral'");
    EXPECT_EQ(FirstMiss(Explain("OptionTree", "Options.1110", "GetItemByPath", {Text("Display/Egdes")})),
              "item 'Edges': text 'Edges' is not 'Egdes'");
    const Explanation combo =
        Explain("GroupCombo", "CAD.1102", "SelectItemByName", {Text("Metal"), Text("Brass")});
    EXPECT_EQ(FirstMiss(combo), "item 'Brass' below 'Metals': heading 'Metals' is not 'Metal'");
    EXPECT_THAT(combo.line, EndsWith("SelectItemByName(\"Metals\", \"Brass\")"));
}

TEST_F(ExplainNothing, NamesTheItemsOfBars) {
    const Explanation caption = Explain("ControlBar", "Frame.1081", "GetItemByID", {Text("circle")});
    EXPECT_EQ(FirstMiss(caption), "item 'Circle' id 702: text 'Circle' does not begin with 'circle': it "
                                  "differs only in upper and lower case");
    EXPECT_FALSE(IsRectEmpty(&caption.rectangle));
    EXPECT_THAT(caption.line, EndsWith(".GetItemByID(\"Circle\")"));
    EXPECT_EQ(FirstMiss(Explain("ControlBar", "Frame.1081", "GetItemByID", {Text(""), Number(7002)})),
              "item 'Circle' id 702: id 702 is not 7002");
    EXPECT_EQ(Explain("ControlBar", "Frame.1080", "GetItem", {Number(77)}).reason,
              "ToolbarWindow32 'Standard' id 1080 has 9 items, 0 to 8; 77 is none of them");
    // The state bit of the host's own bars means the opposite.
    const auto act = [](const char* bar, const char* member, const char* item) {
        return Explain("ControlBarItem", bar, member, {}, {{"Toolbar", {}}, {"GetItemByID", {Text(item)}}})
            .reason;
    };
    EXPECT_EQ(act("Frame.1080", "Click", "Print"), "item 'Print' id 106 stayed disabled");
    EXPECT_EQ(act("Frame.1081", "Click", "Spline"), "item 'Spline' id 703 stayed disabled");
    EXPECT_EQ(act("Frame.1082", "Expand", "Snap"), "item 'Snap' id 705 is enabled, but opened nothing");
    EXPECT_EQ(act("Frame.1082", "Expand", "Nowhere"), "the item is disabled or gone");
}

TEST_F(ExplainNothing, TellsWhatAWindowLacksToBeTheActiveDialog) {
    const Explanation none = Explain("BaseWindow", host->Frame(), "ActiveDialog");
    EXPECT_THAT(none.reason, StartsWith("the active window is ")) << none.reason;
    EXPECT_EQ(FirstMiss(none), "dialog 'Palette': has no dialog's frame (DS_MODALFRAME)");
    EXPECT_EQ(none.line, "gh.MainWindow(\"sample_host.exe\", \"Palette\", \"\", &H200)");
    const Explanation child = Explain("TreeControl", "Trees.1140", "ActiveDialog");
    EXPECT_THAT(child.reason, HasSubstr("ask the main window"));
    EXPECT_EQ(child.line, "gh.MainWindow(\"sample_host\").ActiveDialog");
}

TEST_F(ExplainNothing, TellsOfTheOtherNavigations) {
    EXPECT_EQ(Explain("BaseWindow", host->Frame(), "WindowByID", {Text("No.1")}).reason,
              "SampleHostFrame 'Ghosthand Sample Host' answers no window: it does not know the name 'No.1', "
              "or no names at all");
    EXPECT_EQ(Explain("BaseWindow", host->Frame(), "ButtonByID", {Text("")}).reason, "the name is empty");
    EXPECT_EQ(Explain("BaseWindow", host->Frame(), "EditByID", {Text("Palette")}).reason,
              "the window is there by now: it came when the time was over");
    EXPECT_THAT(Explain("TreeControl", "Trees.1140", "MainMenu").reason, HasSubstr("ask the main window"));
    EXPECT_THAT(Explain("BaseWindow", "Palette", "ActiveDocument").reason, HasSubstr("'MDIClient'"));
    EXPECT_EQ(Explain("BaseWindow", host->Frame(), "CurrentContextMenu").reason, "the program shows no menu");
    EXPECT_EQ(FirstMiss(Explain("BaseWindow", host->Frame(), "OpenSaveDialog")),
              "dialog 'Palette': has no button with id 1");
    EXPECT_EQ(Explain("BaseWindow", reinterpret_cast<HWND>(0x1234567), "Button").reason,
              "the window of the object is gone");
    EXPECT_EQ(Explain("Unknown", host->Frame(), "Unknown").reason, "");
}

engine::WindowCriteria ButtonCriteria(HWND parent, std::string_view caption, std::uint32_t flags = 0) {
    engine::WindowCriteria criteria;
    criteria.parent = parent;
    criteria.flags = flags | engine::kIgnoreStyle;
    engine::WantCaption(criteria, caption);
    engine::WantClass(criteria, "Button");
    engine::WantId(criteria, 0);
    return criteria;
}

TEST_F(ExplainNothing, AsksNothingOfAProgramThatHangs) {
    const SampleHost hung("--page find --page trees");
    const HWND tree = hung.WaitForWindow("Trees.1140");
    const HWND find = hung.WaitForWindow("Find");
    ASSERT_NE(find, nullptr);
    const UINT message = RegisterWindowMessageA(sample_host::kMisbehaveMessage);
    PostMessageA(hung.Frame(), message, static_cast<WPARAM>(Misbehaviour::Busy), 20000);
    Sleep(500);
    EXPECT_EQ(Explain("TreeControl", tree, "ItemByPath", {Text("Box|x")}).reason,
              "the program does not answer");
    const engine::WindowCriteria search = ButtonCriteria(find, "Fnd");
    FailedCall call;
    call.member = "Button";
    call.window = find;
    call.searches = {&search, 1};
    const ULONGLONG begin = GetTickCount64();
    const Explanation explanation = explain::ExplainNothing(call);
    EXPECT_LT(GetTickCount64() - begin, 5000u);
    EXPECT_EQ(explanation.reason, "the program does not answer");
    EXPECT_THAT(FirstMiss(explanation), HasSubstr("does not contain 'Fnd'"));

    // A search with a test that asks the windows.
    engine::WindowCriteria cadTree;
    cadTree.parent = hung.Frame();
    cadTree.flags = engine::kIgnoreStyle | engine::kIgnoreCaption | engine::kIgnoreId;
    engine::WantClass(cadTree, "SysTreeView32");
    cadTree.customTest = controls::IsCadTree;
    cadTree.customKind = "CAD tree";
    call.member = "CADTree";
    call.window = hung.Frame();
    call.searches = {&cadTree, 1};
    const Explanation unasked = explain::ExplainNothing(call);
    EXPECT_LT(GetTickCount64() - begin, 10000u);
    ASSERT_FALSE(unasked.misses.empty());
    EXPECT_THAT(unasked.misses.front().reasons,
                Contains("cannot be asked what it is: its program does not answer"));
}

TEST_F(ExplainNothing, FindsTheWayItself) {
    EXPECT_EQ(Explain("TreeControl", "Trees.1140", "ItemByPath", {Text("Box|hole 1")}, {}).line,
              "gh.MainWindow(\"sample_host\").TreeCtrl(1140, &H40).ItemByPath(\"Box|Hole 1\")");
    // No change of the arguments leads to a window of another parent.
    const engine::WindowCriteria search = ButtonCriteria(host->Window("Palette"), "Close");
    FailedCall call;
    call.member = "Button";
    call.kind = "BaseWindow";
    call.window = search.parent;
    call.arguments = {Text("Close")};
    call.searches = {&search, 1};
    call.reached = kReached;
    const Explanation explanation = explain::ExplainNothing(call);
    EXPECT_EQ(FirstMiss(explanation),
              "Button 'Close' id 1: belongs to dialog 'Options', not to dialog 'Palette'");
    EXPECT_EQ(explanation.line, "gh.MainWindow(\"sample_host\", \"Options\", \"\", &H200).Button");
}

TEST(ExplainNothingElsewhere, BearsThousandsOfWindows) {
    const SampleHost crowd("--many-children 5000");
    HWND tree = nullptr;
    ASSERT_TRUE(Eventually([&] {
        tree = FindWindowA(ids::kTreeClass, nullptr);
        return engine::FindControl(tree, engine::kEdit, 0, engine::kAnyDescendant) != nullptr;
    }));
    engine::WindowCriteria search;
    search.parent = tree;
    search.flags = engine::kIgnoreStyle | engine::kIgnoreCaption | engine::kAnyDescendant;
    engine::WantClass(search, "Edit");
    search.controlId = 1;
    const auto windows = explain::RejectedWindows({&search, 1}, 1, GetTickCount64() + 60000);
    ASSERT_EQ(windows.size(), 1u);
    EXPECT_EQ(GetDlgCtrlID(windows[0].window), ids::kFirstOfMany + 4999);
    EXPECT_THAT(windows[0].rejections, ElementsAre(explain::Rejection::Id));

    FailedCall call;
    call.member = "Edit";
    call.window = tree;
    call.searches = {&search, 1};
    const ULONGLONG begin = GetTickCount64();
    explain::ExplainNothing(call);
    EXPECT_LT(GetTickCount64() - begin, 5000u);
}

TEST(ExplainNothingElsewhere, NamesTheKeyInRegeditsTree) {
    hostlink::SetModuleInstance(support::ThisModule());
    const support::Program regedit("regedit.exe");
    FailedCall call;
    call.member = "SelectItemByPath";
    call.kind = "TreeControl";
    ASSERT_TRUE(Eventually([&] {
        call.window = engine::FindControl(engine::FindMainWindow("regedit", "", "", 0), engine::kTreeView, 0,
                                          engine::kAnyDescendant);
        return call.window != nullptr;
    }));
    const auto item = [&] { return SendMessageA(call.window, TVM_GETNEXTITEM, TVGN_ROOT, 0); };
    ASSERT_TRUE(Eventually([&] { return item() != 0; }));
    SendMessageA(call.window, TVM_EXPAND, TVE_EXPAND, item());
    call.arguments = {std::string("My Computer|HKEY_CURENT_USER")};
    call.reached = kReached;
    const Explanation explanation = explain::ExplainNothing(call);
    EXPECT_EQ(FirstMiss(explanation),
              "item 'HKEY_CURRENT_USER': text 'HKEY_CURRENT_USER' is not 'HKEY_CURENT_USER'");
    EXPECT_THAT(explanation.line, EndsWith("(\"My Computer|HKEY_CURRENT_USER\")")) << explanation.reason;
}

TEST(ExplainNothingElsewhere, SaysThatAProgramDoesNotRun) {
    engine::WindowCriteria search;
    search.flags = engine::kIgnoreStyle | engine::kIgnoreId | engine::kIgnoreCaption | engine::kIgnoreClass;
    const auto explain = [&](const char* program) {
        engine::SetSearchText(search.moduleName, program);
        FailedCall call;
        call.member = "MainWindow";
        call.arguments = {std::string(program)};
        call.searches = {&search, 1};
        return explain::ExplainNothing(call);
    };
    EXPECT_EQ(explain("no_such_program").reason,
              "no program runs whose file name begins with 'no_such_program'");
    EXPECT_EQ(explain("SERVICES").reason,
              "'services.exe' runs, but it has no window that can be seen from here");
    const SampleHost host;
    const Explanation mistyped = explain("sampel_host");
    EXPECT_THAT(FirstMiss(mistyped), EndsWith("; 'sample_host.exe' runs"));
    EXPECT_EQ(mistyped.line, "gh.MainWindow(\"sample_host.exe\")");
}

TEST(ExplainNothingElsewhere, NamesTheButtonOfNotepadsFindDialog) {
    hostlink::SetModuleInstance(support::ThisModule());
    constexpr unsigned kFind = 0x120;
    const support::Program notepad("notepad.exe");
    HWND main = nullptr;
    HWND find = nullptr;
    ASSERT_TRUE(Eventually([&] { return (main = engine::FindMainWindow("notepad", "", "", 0)) != nullptr; }));
    PostMessageA(main, WM_COMMAND, kFind, 0);
    ASSERT_TRUE(Eventually([&] { return (find = engine::FindChildDialog(main, "Find", 0, 0)) != nullptr; }));
    const engine::WindowCriteria searches[] = {ButtonCriteria(find, "Fnd"), ButtonCriteria(find, "Fnd")};
    FailedCall call;
    call.member = "Button";
    call.kind = "BaseWindow";
    call.window = find;
    call.arguments = {std::string("Fnd"), std::int64_t{0}, std::int64_t{0}, std::int64_t{2}};
    call.searches = searches;
    call.reached = {{"MainWindow", {std::string("notepad")}}, {"ActiveDialog", {}}};
    const Explanation explanation = explain::ExplainNothing(call);
    EXPECT_EQ(explanation.wanted, "a window whose caption contains 'Fnd', of a class that contains 'Button', "
                                  "visible, directly below dialog 'Find'");
    EXPECT_EQ(FirstMiss(explanation),
              "Button '&Find Next' id 1: caption '&Find Next' does not contain 'Fnd'");
    EXPECT_EQ(explanation.line, "gh.MainWindow(\"notepad\").ActiveDialog.Button(\"&Find Next\", 0, 0, 2)");
    EXPECT_TRUE(EqualRect(&explanation.rectangle, &explanation.misses.front().rectangle));
}

} // namespace
