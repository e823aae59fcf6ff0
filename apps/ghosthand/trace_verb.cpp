#include "ghosthand/verbs.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <type_traits>

#include <windows.h>

#include "explain/json_writer.h"
#include "explain/system_text.h"
#include "explain/utf8.h"
#include "ghosthand/report_verb.h"
#include "report/report_file.h"
#include "shared/console.h"
#include "shared/quoted_argument.h"

namespace apps {

namespace {

namespace fs = std::filesystem;

struct HandleCloser {
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;

std::wstring FolderName() {
    SYSTEMTIME now = {};
    GetLocalTime(&now);
    wchar_t name[64] = L"";
    std::swprintf(name, std::size(name), L"trace-%04d%02d%02d-%02d%02d%02d", now.wYear, now.wMonth, now.wDay,
                  now.wHour, now.wMinute, now.wSecond);
    return name;
}

// A folder without a trace, made where there is none. Throws std::runtime_error with a sentence.
fs::path MakeFolder(const std::optional<fs::path>& asked) {
    std::error_code error;
    if (asked) {
        fs::path folder = fs::absolute(*asked);
        fs::create_directories(folder, error);
        if (!fs::is_directory(folder, error)) {
            throw std::runtime_error("The folder " + report::PathText(folder) + " cannot be made.");
        }
        if (report::HasTrace(folder)) {
            throw std::runtime_error(report::PathText(folder) +
                                     " holds a trace already: name another folder.");
        }
        return folder;
    }
    const std::wstring name = FolderName();
    for (int number = 1; number < 100; ++number) {
        fs::path folder = fs::current_path() / (number == 1 ? name : name + L"-" + std::to_wstring(number));
        if (fs::create_directory(folder, error)) {
            return folder;
        }
    }
    throw std::runtime_error("No folder for the trace can be made in " +
                             report::PathText(fs::current_path()) + ": name one with --folder.");
}

// Ctrl+C and Ctrl+Break go to every program of the console: the traced one decides what it does, and this one
// still has a report to make.
BOOL WINAPI StayOnInterruption(DWORD event) {
    return event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT;
}

// The process, or null with the reason in GetLastError(). It has this program's console, input and outputs.
UniqueHandle Start(std::wstring commandLine) {
    STARTUPINFOW startup = {};
    startup.cb = sizeof(startup);
    startup.dwFlags = STARTF_USESTDHANDLES;
    startup.hStdInput = GetStdHandle(STD_INPUT_HANDLE);
    startup.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    startup.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION process = {};
    if (!CreateProcessW(nullptr, commandLine.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &startup,
                        &process)) {
        return nullptr;
    }
    CloseHandle(process.hThread);
    return UniqueHandle(process.hProcess);
}

void WriteRun(const fs::path& folder, const std::string& commandLine, const std::string& started,
              int exitCode) {
    explain::JsonWriter json;
    json.BeginObject().Key("event").Text("run").Key("commandLine").Text(commandLine);
    json.Key("started").Text(started).Key("ended").Text(explain::LocalTimeText());
    json.Key("exitCode").Number(std::int64_t{exitCode}).EndObject();
    std::ofstream(folder / "run.jsonl", std::ios::binary) << json.Result() << '\n';
}

void MakeReport(const fs::path& folder) {
    const fs::path file = folder / "report.html";
    try {
        WriteReport(folder, file);
        PrintError("Report: " + report::PathText(file) + "\n");
    } catch (const std::exception& failure) {
        PrintError(std::string("There is no report: ") + failure.what() + " The trace is in " +
                   report::PathText(folder) + ".\n");
    }
}

} // namespace

int Trace(Arguments arguments) {
    std::optional<fs::path> asked;
    if (arguments.size() > 1 && arguments[0] == "--folder") {
        asked = explain::ToUtf16(arguments[1]);
        arguments = arguments.subspan(2);
    }
    if (arguments.empty() || arguments[0].starts_with("--") || (asked && asked->empty())) {
        return kWrongUsage;
    }
    std::string commandLine;
    for (const std::string& argument : arguments) {
        if (!commandLine.empty()) {
            commandLine += ' ';
        }
        commandLine += QuotedArgument(argument);
    }

    fs::path folder;
    try {
        folder = MakeFolder(asked);
    } catch (const std::runtime_error& failure) {
        PrintError(std::string(failure.what()) + "\n");
        return kFailed;
    }
    // One that the user has named stays. One with files in it, too: the system does not remove it.
    const auto removeOwnFolder = [&] {
        std::error_code error;
        if (!asked) {
            fs::remove(folder, error);
        }
    };
    SetEnvironmentVariableW(L"GHOSTHAND_TRACE", folder.c_str());
    const std::string started = explain::LocalTimeText();
    SetConsoleCtrlHandler(StayOnInterruption, TRUE);
    const UniqueHandle process = Start(explain::ToUtf16(commandLine));
    if (process == nullptr) {
        const DWORD reason = GetLastError();
        PrintError(arguments[0] + " could not be started: " + explain::SystemText(reason) + "\n");
        removeOwnFolder();
        return kFailed;
    }
    WaitForSingleObject(process.get(), INFINITE);
    DWORD exitCode = 0;
    GetExitCodeProcess(process.get(), &exitCode);
    const int code = static_cast<int>(exitCode);

    std::error_code error;
    if (fs::is_directory(folder, error) && report::HasTrace(folder)) {
        WriteRun(folder, commandLine, started, code);
        MakeReport(folder);
    } else {
        PrintError("There is no trace: " + arguments[0] + " has not used Ghosthand, or an older one.\n");
        removeOwnFolder();
    }
    return code;
}

} // namespace apps
