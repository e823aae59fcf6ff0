// Scripts that work menus, from inside the program that has them, and tool bars of another program.
#include "com/built_module.h"
#include "support/environment.h"
#include "support/program.h"

#include <gmock/gmock.h>

#include <chrono>
#include <filesystem>
#include <functional>

namespace {

using support::BuiltModule;
using support::Program;
using support::ReadFile;
using testing::EndsWith;

constexpr int kScriptSeconds = 240; // a busy machine takes its time

class ControlBarScriptTest : public testing::Test {
protected:
    static void SetUpTestSuite() {
        ASSERT_EQ(BuiltModule(BuiltModule::DefaultPath()).RegisterServer(), S_OK);
    }
    static void TearDownTestSuite() { BuiltModule(BuiltModule::DefaultPath()).UnregisterServer(); }

    static std::string PathOf(const std::string& script) { return SCRIPT_FOLDER "\\" + script; }

    // A file for each script that does not exist yet.
    static std::string OutputOf(const std::string& script) {
        const auto output = std::filesystem::temp_directory_path() / (script + ".txt");
        std::filesystem::remove(output);
        return output.string();
    }

    // Each answers with what the script wrote.
    static std::string RunInSampleHost(const std::string& script) {
        const std::string output = OutputOf(script);
        std::string commandLine = "\"";
        commandLine += support::PathFromEnvironment("GHOSTHAND_SAMPLE_HOST") + "\" --script \"" +
                       PathOf(script) + "\" --output \"" + output + "\"";
        EXPECT_TRUE(Program(commandLine).WaitForEnd(kScriptSeconds)) << "the script does not come to its end";
        return ReadFile(output);
    }

    static std::string RunOutside(const std::string& program, const std::string& script) {
        const Program driven(program);
        const std::string output = OutputOf(script);
        std::string commandLine = "cscript.exe //nologo \"";
        commandLine += PathOf(script) + "\"";
        EXPECT_TRUE(Program(commandLine, output).WaitForEnd(kScriptSeconds))
            << "the script does not come to its end";
        return ReadFile(output);
    }

    // The program's windows belong to its main thread.
    static std::string RunInside(const std::string& program, const std::string& script) {
        const std::string output = OutputOf(script);
        SetEnvironmentVariableA("GHOSTHAND_SCRIPT", PathOf(script).c_str());
        SetEnvironmentVariableA("GHOSTHAND_SCRIPT_OUTPUT", output.c_str());
        const Program running(program);
        const HMODULE library = LoadLibraryA(PROGRAM_SCRIPT_LIBRARY);
        const auto procedure = reinterpret_cast<HOOKPROC>(
            reinterpret_cast<void*>(GetProcAddress(library, "StartScriptProcedure")));
        HHOOK hook = nullptr; // the thread has a queue only after a while
        EXPECT_TRUE(InTime(running, [&] {
            if (hook == nullptr)
                hook = SetWindowsHookExA(WH_GETMESSAGE, procedure, library, running.MainThreadId());
            PostThreadMessageA(running.MainThreadId(), WM_NULL, 0, 0);
            return ReadFile(output).ends_with("Ended\n");
        })) << "the script does not come to its end";
        UnhookWindowsHookEx(hook);
        return ReadFile(output);
    }

private:
    static bool InTime(const Program& program, const std::function<bool()>& condition) {
        const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(kScriptSeconds);
        while (!condition()) {
            if (program.WaitForEnd(0) || std::chrono::steady_clock::now() > end)
                return false;
            Sleep(100);
        }
        return true;
    }
};

TEST_F(ControlBarScriptTest, MenusOfTheSampleHost) {
    EXPECT_THAT(RunInSampleHost("sample_host_menus.vbs"), EndsWith("Done\r\n"));
}

#ifdef DRIVE_WINE_PROGRAMS // programs with these menus and buttons
TEST_F(ControlBarScriptTest, MenusOfNotepad) {
    EXPECT_THAT(RunInside("notepad.exe", "notepad_menus.vbs"), EndsWith("Done\nEnded\n"));
}

TEST_F(ControlBarScriptTest, ToolBarsOfWordPad) {
    EXPECT_THAT(
        RunOutside("\"C:\\Program Files\\Windows NT\\Accessories\\wordpad.exe\"", "wordpad_toolbars.vbs"),
        EndsWith("Done\r\n"));
}
#endif

} // namespace
