#include "ghosthand/report_verb.h"

#include <optional>
#include <stdexcept>
#include <string_view>

#include <windows.h>

#include <shellapi.h>

#include "explain/utf8.h"
#include "ghosthand/verbs.h"
#include "report/report_file.h"
#include "shared/console.h"

namespace apps {

namespace {

namespace fs = std::filesystem;

// The program's own resource, as long as the program runs.
std::string_view Page() {
    const HRSRC resource = FindResourceW(nullptr, L"REPORT_PAGE", MAKEINTRESOURCEW(10));
    const HGLOBAL loaded = resource == nullptr ? nullptr : LoadResource(nullptr, resource);
    const void* const bytes = loaded == nullptr ? nullptr : LockResource(loaded);
    if (bytes == nullptr) {
        throw std::runtime_error("The report's page is missing in this program.");
    }
    return {static_cast<const char*>(bytes), SizeofResource(nullptr, resource)};
}

struct Request {
    std::optional<fs::path> folder;
    std::optional<fs::path> output;
    bool opens = false;
};

// None if it cannot be understood.
std::optional<Request> RequestOf(Arguments arguments) {
    Request request;
    for (std::size_t index = 0; index < arguments.size(); ++index) {
        const std::string& argument = arguments[index];
        if (argument == "--open") {
            request.opens = true;
        } else if (argument == "--output" && index + 1 < arguments.size() && !request.output) {
            request.output = explain::ToUtf16(arguments[++index]);
        } else if (!argument.empty() && !argument.starts_with("--") && !request.folder) {
            request.folder = explain::ToUtf16(argument);
        } else {
            return std::nullopt;
        }
    }
    return request.folder ? std::optional(request) : std::nullopt;
}

bool Open(const fs::path& file) {
    const auto result = reinterpret_cast<INT_PTR>(
        ShellExecuteW(nullptr, L"open", fs::absolute(file).c_str(), nullptr, nullptr, SW_SHOWNORMAL));
    return result > 32; // so that call says that it worked
}

} // namespace

void WriteReport(const fs::path& folder, const fs::path& output) {
    report::WriteReport(folder, Page(), output);
}

int Report(Arguments arguments) {
    const auto request = RequestOf(arguments);
    if (!request) {
        return kWrongUsage;
    }
    const fs::path& folder = *request->folder;
    const std::string name = report::PathText(folder);
    std::error_code error;
    if (!fs::is_directory(folder, error)) {
        PrintError("There is no folder " + name + ".\n");
        return kFailed;
    }
    const fs::path output = request->output.value_or(folder / "report.html");
    try {
        if (!report::HasTrace(folder)) {
            PrintError("There is no trace in " + name + ": no file trace-*.jsonl.\n");
            return kFailed;
        }
        WriteReport(folder, output);
    } catch (const std::runtime_error& failure) {
        PrintError(std::string(failure.what()) + "\n");
        return kFailed;
    }
    Print("Report: " + report::PathText(fs::absolute(output).make_preferred()) + "\n");
    if (request->opens && !Open(output)) {
        PrintError("No program shows it: is there no browser?\n");
        return kFailed;
    }
    return kDone;
}

} // namespace apps
