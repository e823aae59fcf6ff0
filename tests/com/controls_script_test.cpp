// Scripts, run by the system's script host, that drive the standard controls of another program.
#include "com/built_module.h"
#include "support/environment.h"
#include "support/program.h"

#include <gmock/gmock.h>

#include <filesystem>

namespace {

using support::BuiltModule;
using support::Program;
using testing::EndsWith;

constexpr int kScriptSeconds = 240; // a busy machine takes its time

class ControlsScriptTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        ASSERT_EQ(BuiltModule(BuiltModule::DefaultPath()).RegisterServer(), S_OK);
    }
    static void TearDownTestSuite() { BuiltModule(BuiltModule::DefaultPath()).UnregisterServer(); }

    // Runs the script against the program. What it wrote.
    static std::string Drive(const std::string& program, const std::string& script,
                             const std::string& argument = "") {
        const Program driven(program);
        std::string commandLine = "cscript.exe //nologo \"" SCRIPT_FOLDER "\\";
        commandLine += script;
        commandLine += "\" \"";
        commandLine += argument;
        commandLine += "\"";
        const auto output = std::filesystem::temp_directory_path() / "controls_script_test.txt";
        {
            const Program host(commandLine, output.string());
            EXPECT_TRUE(host.WaitForEnd(kScriptSeconds)) << "the script does not come to its end";
        }
        return support::ReadFile(output);
    }
};

TEST_F(ControlsScriptTest, SampleHost) {
    std::string program = "\"";
    program += support::PathFromEnvironment("GHOSTHAND_SAMPLE_HOST");
    program += "\"";
    EXPECT_THAT(Drive(program, "standard_controls.vbs"), EndsWith("Done\r\n"));
}

#ifdef DRIVE_WINE_PROGRAMS // programs with these controls and commands
TEST_F(ControlsScriptTest, NotepadsFileDialog) {
    const auto file = std::filesystem::temp_directory_path() / "kept & read.txt";
    std::filesystem::remove(file);
    EXPECT_THAT(Drive("notepad.exe", "notepad_file_dialog.vbs", file.string()), EndsWith("Done\r\n"));
    EXPECT_EQ(support::ReadFile(file), "Saved by a script & read back.");
}

TEST_F(ControlsScriptTest, PropertySheet) {
    EXPECT_THAT(Drive("winecfg.exe", "winecfg.vbs"), EndsWith("Done\r\n"));
}

TEST_F(ControlsScriptTest, TaskManager) {
    EXPECT_THAT(Drive("taskmgr.exe", "taskmgr.vbs"), EndsWith("Done\r\n"));
}
#endif

} // namespace
