// The built console tool says what lies at a point of the screen.
#include <gmock/gmock.h>

#include <algorithm>
#include <filesystem>
#include <optional>
#include <string>

#include "support/program.h"
#include "support/sample_host.h"

namespace {

using support::Eventually;
using support::Program;
using testing::AllOf;
using testing::HasSubstr;
using testing::StartsWith;
namespace ids = sample_host::ids;

std::filesystem::path OutputFile() {
    return std::filesystem::temp_directory_path() / ("at" + std::to_string(GetCurrentProcessId()) + ".txt");
}

std::string Tool(const std::string& arguments) {
    std::string commandLine = "\"";
    commandLine += support::PathFromEnvironment("GHOSTHAND_TOOL");
    return commandLine.append("\" at ").append(arguments);
}

struct Answer {
    DWORD exitCode = 0;
    std::string output;
};

Answer RunTool(const std::string& arguments) {
    Answer answer;
    {
        const Program tool(Tool(arguments), OutputFile().string());
        EXPECT_TRUE(tool.WaitForEnd(60)) << arguments;
        GetExitCodeProcess(tool.Process(), &answer.exitCode);
    }
    answer.output = support::ReadFile(OutputFile());
    std::filesystem::remove(OutputFile());
    return answer;
}

std::string Written(POINT point) {
    return std::to_string(point.x).append(" ").append(std::to_string(point.y));
}

POINT OnScreen(HWND window, POINT point) {
    ClientToScreen(window, &point);
    return point;
}

POINT MiddleOfLine(HWND list, int index) {
    RECT area{};
    SendMessageA(list, LB_GETITEMRECT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&area));
    return OnScreen(list, {area.left + 20, (area.top + area.bottom) / 2});
}

TEST(AtVerb, TellsTheControlTheItemAndTheirCalls) {
    const support::SampleHost host("--page list-boxes");
    const HWND list = host.WaitForWindow("List boxes.1022");
    SetForegroundWindow(host.Frame());
    const Answer text = RunTool(Written(MiddleOfLine(list, 1)));
    EXPECT_EQ(text.exitCode, 0u);
    EXPECT_THAT(text.output,
                AllOf(StartsWith("ListBox '' id 1022  ListBox"), HasSubstr("sample_host.exe, process "),
                      HasSubstr("list item 'Brass'"), HasSubstr(".SelectItemByName(\"Brass\")")));
    const std::string json = RunTool(Written(MiddleOfLine(list, 6)) + " --json --language csharp").output;
    EXPECT_THAT(json, AllOf(StartsWith(R"({"format":"ghosthand-at","version":1,)"),
                            HasSubstr(R"("kind":"list item","text":")"
                                      "\xC3\x9C"
                                      R"(berzug")"),
                            HasSubstr(R"("language":"C#")"), HasSubstr(R"({"member":"SelectItemByName")")));
    EXPECT_EQ(std::ranges::count(json, '\n'), 1) << "one line, for those who read lines";

    const Answer frame = RunTool(Written(OnScreen(host.Frame(), {5, -5})));
    EXPECT_THAT(frame.output, AllOf(StartsWith("SampleHostFrame "), testing::Not(HasSubstr("item"))));
}

TEST(AtVerb, SaysWhatItCannotDo) {
    EXPECT_EQ(RunTool("-30000 -30000").exitCode, 1u);
    for (const char* wrong : {"", "5", "5 6 7", "5 x", "5 6 --language Cobol", "5 6 --watch"}) {
        const Answer answer = RunTool(wrong);
        EXPECT_EQ(answer.exitCode, 2u) << wrong;
        EXPECT_THAT(answer.output, HasSubstr("Usage: ghosthand at")) << wrong;
    }
}

TEST(AtVerb, FollowsTheMouse) {
    const support::SampleHost host("--page list-boxes");
    const HWND list = host.WaitForWindow("List boxes.1022");
    SetForegroundWindow(host.Frame());
    const auto moveTo = [&](int index) {
        const POINT point = MiddleOfLine(list, index);
        SetCursorPos(point.x, point.y);
    };
    moveTo(0);
    {
        const Program tool(Tool("--watch"), OutputFile().string());
        const auto says = [](const char* text) {
            return Eventually(
                [&] { return support::ReadFile(OutputFile()).find(text) != std::string::npos; });
        };
        EXPECT_TRUE(says("'Aluminium'"));
        moveTo(7);
        EXPECT_TRUE(says("'Nickel'"));
        // What comes below a cursor that rests, as when a list scrolls.
        SendMessageA(list, LB_DELETESTRING, 7, 0);
        EXPECT_TRUE(says("'Steel'"));
    }
    const std::string output = support::ReadFile(OutputFile());
    std::filesystem::remove(OutputFile());
    std::size_t count = 0;
    for (std::size_t place = 0; (place = output.find("list item '", place)) != std::string::npos; ++place) {
        ++count;
    }
    EXPECT_EQ(count, 3u) << output;
}

#ifdef DRIVE_WINE_PROGRAMS
TEST(AtVerb, TellsAnItemOfAProgramThatKnowsNothingOfIt) {
    const Program program("regedit.exe");
    HWND tree = nullptr;
    const auto findTree = [&] {
        const HWND frame = FindWindowA("RegEdit_RegEdit", nullptr);
        const HWND child = FindWindowExA(frame, nullptr, "REGEDIT", nullptr);
        tree = child == nullptr ? nullptr : FindWindowExA(child, nullptr, "SysTreeView32", nullptr);
        return tree != nullptr && IsWindowVisible(tree);
    };
    ASSERT_TRUE(Eventually(findTree));
    SetForegroundWindow(GetAncestor(tree, GA_ROOT));
    EXPECT_TRUE(Eventually([&] {
        const std::string output = RunTool(Written(OnScreen(tree, {60, 9}))).output;
        return output.find("tree item 'My Computer'") != std::string::npos &&
               output.find("gh.MainWindow(\"regedit\").TreeCtrl(2002, &H40).ItemByPath(\"My Computer\")") !=
                   std::string::npos;
    })) << RunTool(Written(OnScreen(tree, {60, 9}))).output;
}
#endif

} // namespace
