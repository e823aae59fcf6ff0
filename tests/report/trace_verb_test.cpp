// The console tool's verb "trace", with this test's own program as the traced one.
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <span>
#include <sstream>
#include <string>
#include <vector>

#include <windows.h>

#include <shellapi.h>

#include <gtest/gtest.h>

#include "shared/quoted_argument.h"

namespace {

namespace fs = std::filesystem;

constexpr int kChildCode = 93;
constexpr int kInterruptedCode = 94;
constexpr DWORD kPatience = 60'000;

fs::path OwnPath() {
    wchar_t path[MAX_PATH] = L"";
    GetModuleFileNameW(nullptr, path, MAX_PATH);
    return path;
}

std::wstring ToUtf16(std::u8string_view text) {
    return fs::path(text).native();
}

std::string Read(const fs::path& file) {
    std::ostringstream text;
    text << std::ifstream(file, std::ios::binary).rdbuf();
    return text.str();
}

fs::path TraceFolder() {
    wchar_t folder[MAX_PATH] = L"";
    GetEnvironmentVariableW(L"GHOSTHAND_TRACE", folder, MAX_PATH);
    return folder;
}

BOOL WINAPI EndInterrupted(DWORD) {
    ExitProcess(kInterruptedCode);
}

// What the traced program does: writes a trace, if one is wanted, and beside it what it was started with.
int BeChild(std::span<wchar_t*> arguments) {
    const fs::path folder = TraceFolder();
    std::ofstream file(folder / "child.txt", std::ios::binary);
    for (const wchar_t* argument : arguments) {
        const std::u8string text = fs::path(argument).u8string();
        file << std::string(text.begin(), text.end()) << '\n';
    }
    file.close();
    std::puts("said by the child");
    if (arguments[0] == std::wstring_view(L"--silent")) {
        fs::remove(folder / "child.txt");
        return kChildCode;
    }
    std::ofstream(folder / "trace-1.jsonl")
        << R"({"event":"start","version":1,"process":1,"program":"child",)"
        << R"("time":"2026-11-25T20:14:02.123+01:00"})" << '\n';
    if (arguments[0] == std::wstring_view(L"--interrupted")) {
        SetConsoleCtrlHandler(EndInterrupted, TRUE);
        GenerateConsoleCtrlEvent(CTRL_C_EVENT, 0);
        Sleep(kPatience);
    }
    return kChildCode;
}

struct Result {
    DWORD code;
    std::string output; // both streams
};

struct HandleCloser {
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};

class TraceVerb : public testing::Test {
protected:
    TraceVerb() { fs::create_directories(m_folder); }
    ~TraceVerb() override {
        // The console's own program may hold the folder a little longer.
        std::error_code ignored;
        fs::remove_all(m_folder.parent_path(), ignored);
    }

    // In a console of its own, which an interruption may empty.
    Result Run(const std::wstring& arguments) {
        std::wstring commandLine =
            L"\"" + fs::path(std::getenv("GHOSTHAND_TOOL")).native() + L"\" " + arguments;
        SECURITY_ATTRIBUTES inherited = {sizeof(SECURITY_ATTRIBUTES), nullptr, TRUE};
        const fs::path outputFile =
            m_folder.parent_path() / (L"output" + std::to_wstring(++m_runs) + L".txt");
        std::unique_ptr<void, HandleCloser> output(
            CreateFileW(outputFile.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited,
                        CREATE_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr));
        STARTUPINFOW startup = {};
        startup.cb = sizeof(startup);
        startup.dwFlags = STARTF_USESTDHANDLES | STARTF_USESHOWWINDOW;
        startup.wShowWindow = SW_HIDE;
        startup.hStdOutput = startup.hStdError = output.get();
        PROCESS_INFORMATION process = {};
        if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, CREATE_NEW_CONSOLE, nullptr,
                            m_folder.c_str(), &startup, &process)) {
            ADD_FAILURE() << "the tool does not start";
            return {};
        }
        const std::unique_ptr<void, HandleCloser> owned(process.hProcess);
        CloseHandle(process.hThread);
        if (WaitForSingleObject(process.hProcess, kPatience) != WAIT_OBJECT_0) {
            TerminateProcess(process.hProcess, 1);
            ADD_FAILURE() << "the tool does not end";
        }
        Result result = {};
        GetExitCodeProcess(process.hProcess, &result.code);
        output.reset();
        result.output = Read(outputFile);
        return result;
    }

    std::vector<fs::path> Entries() const {
        std::vector<fs::path> entries;
        for (const auto& entry : fs::directory_iterator(m_folder)) {
            entries.push_back(entry.path());
        }
        return entries;
    }

    fs::path m_folder = fs::temp_directory_path() /
                        (L"ghosthand trace verb " + std::to_wstring(GetCurrentProcessId()) + L"-" +
                         std::to_wstring(++s_fixtures)) /
                        L"current folder";
    int m_runs = 0;
    static inline int s_fixtures = 0;
    const std::wstring m_child = L"\"" + OwnPath().native() + L"\" --child ";
};

TEST_F(TraceVerb, PassesArgumentsOnAndTheCodeBack) {
    const std::u8string arguments[] = {u8"--folder",         u8"two words",     u8"",
                                       u8"say \"it\"",       u8"back\\slash\\", u8"\\\\\"\\\\",
                                       u8"ends in blank \\", u8"Größe 日本",    u8"100% & <b> ^| 'x'"};
    std::wstring commandLine = L"trace " + m_child;
    std::string expected;
    for (const std::u8string& argument : arguments) {
        const std::string text(argument.begin(), argument.end());
        expected += text + '\n';
        const std::string quoted = apps::QuotedArgument(text);
        commandLine += ToUtf16(std::u8string(quoted.begin(), quoted.end())) + L" ";
    }
    const Result result = Run(commandLine);
    EXPECT_EQ(result.code, DWORD{kChildCode}) << result.output;
    const auto entries = Entries();
    ASSERT_EQ(entries.size(), 1U) << "one folder below the current one";
    EXPECT_TRUE(entries[0].is_absolute());
    EXPECT_EQ(entries[0].filename().native().size(), std::string_view("trace-YYYYMMDD-HHMMSS").size());
    EXPECT_EQ(Read(entries[0] / "child.txt"), expected);
    EXPECT_NE(result.output.find("said by the child"), std::string::npos) << result.output;
    EXPECT_NE(result.output.find("report.html"), std::string::npos) << result.output;
    EXPECT_NE(Read(entries[0] / "report.html").find("trace-1.jsonl"), std::string::npos);
    const std::string run = Read(entries[0] / "run.jsonl");
    EXPECT_NE(run.find("\"exitCode\":93"), std::string::npos) << run;
    EXPECT_NE(run.find("--child"), std::string::npos) << run;
}

TEST_F(TraceVerb, WritesIntoAFolderThatIsNamedButNotIntoAnotherTrace) {
    const std::wstring arguments = L"trace --folder \"a b\\c\" " + m_child + L"x";
    EXPECT_EQ(Run(arguments).code, DWORD{kChildCode});
    EXPECT_TRUE(fs::exists(m_folder / L"a b" / L"c" / L"report.html"));
    fs::remove(m_folder / L"a b" / L"c" / L"child.txt");
    const Result again = Run(arguments);
    EXPECT_EQ(again.code, 1U);
    EXPECT_NE(again.output.find("holds a trace already"), std::string::npos) << again.output;
    EXPECT_FALSE(fs::exists(m_folder / L"a b" / L"c" / L"child.txt")) << "the program was run";
}

TEST_F(TraceVerb, SaysWhatDidNotWork) {
    const Result missing = Run(L"trace no_such_program.exe");
    EXPECT_EQ(missing.code, 1U);
    EXPECT_NE(missing.output.find("no_such_program.exe could not be started"), std::string::npos)
        << missing.output;
    const Result silent = Run(L"trace " + m_child + L"--silent");
    EXPECT_EQ(silent.code, DWORD{kChildCode});
    EXPECT_NE(silent.output.find("There is no trace"), std::string::npos) << silent.output;
    EXPECT_EQ(Entries().size(), 0U) << "an empty folder is left";
    EXPECT_EQ(Run(L"trace").code, 2U);
    EXPECT_EQ(Run(L"trace --folder x").code, 2U);
    EXPECT_EQ(Run(L"report nowhere").code, 1U);
    EXPECT_EQ(Run(L"report . .").code, 2U);
}

TEST_F(TraceVerb, MakesTheReportAfterCtrlC) {
    const Result result = Run(L"trace --folder t " + m_child + L"--interrupted");
    EXPECT_EQ(result.code, DWORD{kInterruptedCode}) << result.output;
    EXPECT_TRUE(fs::exists(m_folder / L"t" / L"report.html")) << result.output;
}

} // namespace

int main(int argc, char** argv) {
    int count = 0;
    wchar_t** const arguments = CommandLineToArgvW(GetCommandLineW(), &count);
    if (count > 2 && arguments[1] == std::wstring_view(L"--child")) {
        return BeChild({arguments + 2, static_cast<std::size_t>(count - 2)});
    }
    testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
