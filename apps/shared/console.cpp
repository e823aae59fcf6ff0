#include "shared/console.h"

#include <windows.h>

#include <shellapi.h>

#include "explain/utf8.h"

namespace apps {

namespace {

void Write(DWORD output, std::string_view text) {
    const HANDLE handle = GetStdHandle(output);
    DWORD mode = 0;
    DWORD written = 0;
    if (GetConsoleMode(handle, &mode)) {
        const std::wstring wide = explain::ToUtf16(text);
        WriteConsoleW(handle, wide.data(), static_cast<DWORD>(wide.size()), &written, nullptr);
        return;
    }
    while (!text.empty() &&
           WriteFile(handle, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) &&
           written > 0) {
        text.remove_prefix(written);
    }
}

} // namespace

std::vector<std::string> CommandLineArguments() {
    int count = 0;
    wchar_t** const parsed = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int index = 1; parsed != nullptr && index < count; ++index) {
        arguments.push_back(explain::ToUtf8(parsed[index]));
    }
    LocalFree(parsed);
    return arguments;
}

void Print(std::string_view text) {
    Write(STD_OUTPUT_HANDLE, text);
}

void PrintError(std::string_view text) {
    Write(STD_ERROR_HANDLE, text);
}

} // namespace apps
