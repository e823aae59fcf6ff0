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
        // A file for each script: the console of the one before may still hold its own.
        const auto output = std::filesystem::temp_directory_path() /
                            std::filesystem::path(script).filename().replace_extension(".txt");
        std::filesystem::remove(output);
        {
            const Program host(commandLine, output.string());
            EXPECT_TRUE(host.WaitForEnd(kScriptSeconds)) << "the script does not come to its end";
        }
        return support::ReadFile(output);
    }
};

std::string SampleHostProgram() {
    std::string program = "\"";
    program += support::PathFromEnvironment("GHOSTHAND_SAMPLE_HOST");
    program += "\"";
    return program;
}

TEST_F(ControlsScriptTest, SampleHost) {
    EXPECT_THAT(Drive(SampleHostProgram(), "standard_controls.vbs"), EndsWith("Done\r\n"));
}

TEST_F(ControlsScriptTest, TreesAndListViewsOfTheSampleHost) {
    EXPECT_THAT(Drive(SampleHostProgram(), "trees_and_list_views.vbs"), EndsWith("Done\r\n"));
}

TEST_F(ControlsScriptTest, CadProgram) {
    EXPECT_THAT(Drive(SampleHostProgram(), "..\\..\\..\\samples\\vbscript\\cad_story.vbs"),
                EndsWith("Done\r\n"));
}

#ifdef DRIVE_WINE_PROGRAMS // programs with these controls and commands
TEST_F(ControlsScriptTest, NotepadsFileDialog) {
    const auto file = std::filesystem::temp_directory_path() / "kept & read.txt";
    std::filesystem::remove(file);
    EXPECT_THAT(Drive("notepad.exe", "notepad_file_dialog.vbs", file.string()), EndsWith("Done\r\n"));
    EXPECT_EQ(support::ReadFile(file), "Saved by a script & read back.");
}

TEST_F(ControlsScriptTest, NotepadByMouseAndKeys) {
    EXPECT_THAT(Drive("notepad.exe", "notepad_input.vbs"), EndsWith("Done\r\n"));
}

TEST_F(ControlsScriptTest, PropertySheet) {
    EXPECT_THAT(Drive("winecfg.exe", "winecfg.vbs"), EndsWith("Done\r\n"));
}

TEST_F(ControlsScriptTest, TaskManager) {
    EXPECT_THAT(Drive("taskmgr.exe", "taskmgr.vbs"), EndsWith("Done\r\n"));
}

// A key of the user's with two keys below it, for the lifetime of the object.
class RegistryKeys {
public:
    static constexpr char kPath[] = "Software\\ControlsScriptTest";

    RegistryKeys() {
        RegDeleteTreeA(HKEY_CURRENT_USER, kPath);
        const HKEY before = Create("Before");
        RegSetValueExA(before, "Colour", 0, REG_SZ, reinterpret_cast<const BYTE*>("red"), 4);
        constexpr DWORD kSize = 42;
        RegSetValueExA(before, "Size", 0, REG_DWORD, reinterpret_cast<const BYTE*>(&kSize), sizeof kSize);
        RegCloseKey(before);
        RegCloseKey(Create("Other"));
    }
    ~RegistryKeys() { RegDeleteTreeA(HKEY_CURRENT_USER, kPath); }
    RegistryKeys(const RegistryKeys&) = delete;
    RegistryKeys& operator=(const RegistryKeys&) = delete;

    static std::string PathOf(const char* name) {
        std::string path = kPath;
        path += "\\";
        path += name;
        return path;
    }
    static bool Exists(const char* name) {
        HKEY key = nullptr;
        const bool found =
            RegOpenKeyExA(HKEY_CURRENT_USER, PathOf(name).c_str(), 0, KEY_READ, &key) == ERROR_SUCCESS;
        if (found)
            RegCloseKey(key);
        return found;
    }

private:
    static HKEY Create(const char* name) {
        HKEY key = nullptr;
        RegCreateKeyExA(HKEY_CURRENT_USER, PathOf(name).c_str(), 0, nullptr, 0, KEY_ALL_ACCESS, nullptr, &key,
                        nullptr);
        return key;
    }
};

TEST_F(ControlsScriptTest, RegistryEditor) {
    const RegistryKeys keys;
    EXPECT_THAT(
        Drive("regedit.exe", "regedit.vbs", "My Computer|HKEY_CURRENT_USER|Software|ControlsScriptTest"),
        EndsWith("Done\r\n"));
    EXPECT_TRUE(RegistryKeys::Exists("After"));
    EXPECT_FALSE(RegistryKeys::Exists("Before"));
}
#endif

} // namespace
