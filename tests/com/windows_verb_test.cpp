// The built console tool lists windows.
#include <gmock/gmock.h>

#include <filesystem>
#include <string>

#include "support/program.h"
#include "support/sample_host.h"

namespace {

using support::Eventually;
using support::Program;
using support::SampleHost;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;
using testing::StartsWith;

class WindowsVerb : public testing::Test {
protected:
    void TearDown() override { std::filesystem::remove(m_output); }

    std::string CommandLine(const std::string& arguments) const {
        std::string commandLine = "\"";
        commandLine += support::PathFromEnvironment("GHOSTHAND_TOOL");
        return commandLine.append("\" windows ").append(arguments);
    }
    const std::string& OutputFile() const { return m_output; }
    std::string Output() const { return support::ReadFile(m_output); }

    // What it wrote; its exit code is `code`.
    std::string Run(const std::string& arguments, DWORD code = 0) const {
        const Program tool(CommandLine(arguments), m_output);
        EXPECT_TRUE(tool.WaitForEnd(60)) << arguments;
        DWORD exitCode = 0;
        GetExitCodeProcess(tool.Process(), &exitCode);
        EXPECT_EQ(exitCode, code) << arguments;
        return Output();
    }

private:
    std::string m_output = (std::filesystem::temp_directory_path() /
                            ("windows" + std::to_string(GetCurrentProcessId()) + ".txt"))
                               .string();
};

TEST_F(WindowsVerb, ListsTheWindowsOfAProgramWithTheirCalls) {
    const SampleHost host("--page twins");
    ASSERT_NE(host.WaitForWindow("Twins"), nullptr);
    std::string firstLine = "sample_host.exe  process ";
    const std::string text = Run("SAMPLE_H");
    EXPECT_THAT(text, StartsWith(firstLine.append(std::to_string(host.ProcessId())).append("\n")));
    EXPECT_THAT(text,
                AllOf(HasSubstr("\n  #32770 'Twins'  owned\n"),
                      HasSubstr("\n    #32770 'Hole, hidden' id 1040  hidden\n"),
                      HasSubstr("\n      Button 'Through all' id 1010  CheckBox\n"), Not(HasSubstr("gh."))));
    EXPECT_THAT(Run("sample_host --calls"),
                HasSubstr("\n          gh.MainWindow(\"sample_host\", \"Twins\", \"\", "
                          "&H200).CheckBox(\"\", 1010, &H40)  ("));
    EXPECT_THAT(Run("sample_host --language powershell"), HasSubstr("$gh.MainWindow('sample_host')  ("));
    EXPECT_THAT(Run("sample_host --json --calls"),
                AllOf(StartsWith(R"({"format":"ghosthand-windows","version":1,"programs":[{"process":)"),
                      HasSubstr(R"("class":"Button","caption":"Through all","id":1010,"kind":"CheckBox",)"),
                      HasSubstr(R"({"member":"CheckBox","arguments":["",1010,64]}],"kind":"CheckBox",)"
                                R"("verified":true,)")));
}

TEST_F(WindowsVerb, SaysWhatItCannotDo) {
    EXPECT_EQ(Run("no_such_program", 1),
              "No program whose file name begins with 'no_such_program' has windows here.\n");
    for (const char* arguments : {"--language Basic", "--language", "--no-such-option", "one two"}) {
        EXPECT_THAT(Run(arguments, 2), StartsWith("Usage: ghosthand windows ")) << arguments;
    }
}

TEST_F(WindowsVerb, WatchesWhatComesAndGoes) {
    const SampleHost host;
    const Program tool(CommandLine("sample_host --watch"), OutputFile());
    ASSERT_TRUE(Eventually([&] { return Output().find("SampleHostFrame") != std::string::npos; }));
    EXPECT_THAT(Output(), Not(HasSubstr("Twins")));
    host.Command(sample_host::ids::kPageTwins);
    EXPECT_TRUE(
        Eventually([&] { return Output().find("\n+   #32770 'Twins'  owned\n") != std::string::npos; }));
    SendMessageA(host.WaitForWindow("Twins"), WM_CLOSE, 0, 0);
    EXPECT_TRUE(
        Eventually([&] { return Output().find("\n-   #32770 'Twins'  owned\n") != std::string::npos; }));
    EXPECT_FALSE(tool.WaitForEnd(0));
}

} // namespace
