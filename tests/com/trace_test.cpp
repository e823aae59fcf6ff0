// The trace of what a client does, as it is found in the folder afterwards.
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

#include <gmock/gmock.h>

#include "com/driven_host.h"
#include "com/late_bound.h"
#include "support/job.h"

namespace {

using support::Ask;
using support::Bstr;
using support::ComPointer;
using testing::AllOf;
using testing::Contains;
using testing::HasSubstr;
using testing::Not;
namespace fs = std::filesystem;

// What a client did, in a process of its own, and the folder with its trace.
class TracedRun {
public:
    // Runs the test of that name below, which is no test but a client.
    explicit TracedRun(const std::string& client, const fs::path& below = L"deep\\r\u00e4ume")
        : m_root(fs::temp_directory_path() / ("trace-test-" + std::to_string(GetCurrentProcessId()))),
          m_path(m_root / below) {
        fs::create_directories(m_root);
        std::ofstream(m_root / "file") << "in the way";
        std::wstring program(MAX_PATH, L'\0');
        program.resize(GetModuleFileNameW(nullptr, program.data(), MAX_PATH));
        std::wstring command = L"\"" + program +
                               L"\" --gtest_also_run_disabled_tests --gtest_filter=DISABLED_Client." +
                               std::wstring(client.begin(), client.end());
        STARTUPINFOW startup{};
        startup.cb = sizeof startup;
        PROCESS_INFORMATION process{};
        SetEnvironmentVariableW(L"GHOSTHAND_TRACE", m_path.c_str());
        const BOOL started = CreateProcessW(nullptr, command.data(), nullptr, nullptr, FALSE, 0, nullptr,
                                            nullptr, &startup, &process);
        SetEnvironmentVariableW(L"GHOSTHAND_TRACE", nullptr);
        if (!started) {
            throw std::runtime_error("the client cannot be started");
        }
        WaitForSingleObject(process.hProcess, 60000);
        GetExitCodeProcess(process.hProcess, &m_exitCode);
        CloseHandle(process.hThread);
        CloseHandle(process.hProcess);
    }
    ~TracedRun() {
        std::error_code ignored;
        fs::remove_all(m_root, ignored);
    }
    TracedRun(const TracedRun&) = delete;
    TracedRun& operator=(const TracedRun&) = delete;

    DWORD ExitCode() const { return m_exitCode; }
    const fs::path& Folder() const { return m_path; }

    std::vector<std::string> Lines() const {
        std::vector<std::string> lines;
        for (const auto& entry : fs::directory_iterator(m_path)) {
            if (entry.path().extension() == ".jsonl") {
                std::ifstream file(entry.path(), std::ios::binary);
                for (std::string line; std::getline(file, line);) {
                    lines.push_back(line);
                }
            }
        }
        return lines;
    }

private:
    fs::path m_root;
    fs::path m_path;
    DWORD m_exitCode = STILL_ACTIVE;
};

class DISABLED_Client : public support::DrivenHost {
protected:
    static void SetUpTestSuite() {
        support::EndChildrenWithThisProcess();
        DrivenHost::SetUpTestSuite();
    }
};

TEST_F(DISABLED_Client, CallsInBothWays) {
    const auto window = MainWindow();
    ComPointer<IBaseWindow> edit;
    ASSERT_EQ(window->Edit(1001, 0x40, 10, edit.Receive()), S_OK);
    edit->put_Text(Bstr(L"\u00fcber \"Quotes\"\n"));
    const support::Variant byName = Ask(*window.Get(), L"Edit", LONG{1001}, LONG{0x40});
    EXPECT_EQ(Ask(*byName.Object(), L"Text").Text(), L"\u00fcber \"Quotes\"\n");
    Ask(*byName.Object(), L"Synchronization");
}

TEST_F(DISABLED_Client, FindsNothing) {
    const auto window = MainWindow();
    ComPointer<IBaseWindow> edit;
    // The edit controls lie deeper than the main window's own children.
    EXPECT_EQ(window->Edit(1001, 0, 1, edit.Receive()), S_FALSE);
    for (int time = 0; time < 5; ++time) {
        EXPECT_EQ(window->Edit(77, 0x40, 0, edit.Receive()), S_FALSE);
    }
}

TEST_F(DISABLED_Client, EndsInTheMiddleOfAWait) {
    std::thread([] {
        Sleep(2000);
        TerminateProcess(GetCurrentProcess(), 7);
    }).detach();
    ComPointer<IBaseWindow> edit;
    MainWindow()->Edit(77, 0x40, 30, edit.Receive());
}

auto Event(const char* name) {
    return HasSubstr("\"event\":\"" + std::string(name) + "\"");
}
auto Member(const char* name) {
    return HasSubstr("\"member\":\"" + std::string(name) + "\"");
}

TEST(Trace, TellsOfCallsByNameAndThroughTheVtableAlike) {
    const TracedRun run("CallsInBothWays");
    EXPECT_EQ(run.ExitCode(), 0u);
    const auto lines = run.Lines();
    ASSERT_FALSE(lines.empty());
    EXPECT_THAT(lines.front(), AllOf(Event("start"), HasSubstr("trace_test"), HasSubstr("\"version\":1,")));
    EXPECT_THAT(lines.back(), Event("stop"));
    const std::string main = R"(gh.MainWindow(\"sample_host\", \"\", \"\", &H0, 60))";
    EXPECT_THAT(lines, Contains(AllOf(Event("call"), HasSubstr("\"text\":\"" + main + "\""))));
    EXPECT_THAT(lines, Contains(AllOf(Event("call"), HasSubstr("\"object\":\"" + main + "\""),
                                      HasSubstr("\"text\":\"" + main + ".Edit(1001, &H40)\"")))
                           .Times(2));
    EXPECT_THAT(lines, Contains(AllOf(Event("call"), HasSubstr("\"kind\":\"put\""), Member("Text"),
                                      HasSubstr("\"arguments\":[\"\u00fcber \\\"Quotes\\\"\\n\"]"))));
    EXPECT_THAT(lines, Contains(AllOf(Event("end"), HasSubstr("\"result\":\"True\""),
                                      HasSubstr("\"failed\":false"))));
    EXPECT_THAT(lines, Contains(AllOf(Event("step"), HasSubstr("\"kind\":\"synchronise\""))));
    EXPECT_THAT(lines, Contains(AllOf(Event("stepEnd"), HasSubstr("in step, marker taken"))));
    EXPECT_THAT(lines, Contains(AllOf(Event("search"), HasSubstr("id 1001"), HasSubstr("\"rounds\":1,"),
                                      HasSubstr("\"found\":true")))
                           .Times(2));
    EXPECT_THAT(lines, Not(Contains(HasSubstr("\"failed\":true"))));
}

TEST(Trace, SaysWhyACallCameToNothingWithAPictureOfThatMoment) {
    const TracedRun run("FindsNothing");
    EXPECT_EQ(run.ExitCode(), 0u);
    const auto lines = run.Lines();
    EXPECT_THAT(lines, Contains(AllOf(Event("stepEnd"), HasSubstr("timed out after 1 s"))));
    EXPECT_THAT(lines, Contains(AllOf(Event("search"), HasSubstr("id 1001"), HasSubstr("\"found\":false"))));
    EXPECT_THAT(lines, Contains(AllOf(Event("miss"), HasSubstr("Edit id 1001"), HasSubstr("add &H40"),
                                      HasSubstr(".Edit(1001, &H40, 1)\""))));
    EXPECT_THAT(lines, Contains(AllOf(Event("end"), HasSubstr("\"result\":\"Nothing\""),
                                      HasSubstr("\"failed\":true")))
                           .Times(6));
    // The same failure is explained twice, not five times.
    EXPECT_THAT(lines, Contains(Event("picture")).Times(3));
    int pictures = 0;
    for (const auto& entry : fs::directory_iterator(run.Folder())) {
        if (entry.path().extension() == ".png") {
            std::ifstream file(entry.path(), std::ios::binary);
            char signature[8] = {};
            file.read(signature, sizeof signature);
            EXPECT_EQ(std::string(signature, sizeof signature), "\x89PNG\r\n\x1a\n");
            ++pictures;
        }
    }
    EXPECT_EQ(pictures, 3);
}

TEST(Trace, ChangesNothingWhereItCannotBeWritten) {
    const TracedRun run("CallsInBothWays", "file");
    EXPECT_EQ(run.ExitCode(), 0u);
    EXPECT_EQ(fs::file_size(run.Folder()), 10u);
}

TEST(Trace, ShowsTheStepInWhichTheProcessWasEnded) {
    const TracedRun run("EndsInTheMiddleOfAWait");
    EXPECT_EQ(run.ExitCode(), 7u);
    const auto lines = run.Lines();
    ASSERT_FALSE(lines.empty());
    EXPECT_THAT(lines.back(), AllOf(Event("step"), HasSubstr("wait for Edit(77)"), testing::EndsWith("}")));
}

} // namespace
