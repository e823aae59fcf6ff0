#include "trace/trace_file.h"

#include <exception>

#include "engine/diagnostics.h"
#include "explain/system_text.h"
#include "explain/utf8.h"

namespace trace {

namespace {

constexpr int kMostFilesOfProcess = 1000;

// Makes a folder and those above it. What is there already is no failure.
void MakeFolder(const std::wstring& folder) {
    if (CreateDirectoryW(folder.c_str(), nullptr) || GetLastError() != ERROR_PATH_NOT_FOUND) {
        return;
    }
    const auto separator = folder.find_last_of(L"\\/", folder.find_last_not_of(L"\\/"));
    if (separator != std::wstring::npos && separator > 0) {
        MakeFolder(folder.substr(0, separator));
        CreateDirectoryW(folder.c_str(), nullptr);
    }
}

// A file that is not there yet: a process that loads the module again, and one that has the number of an
// earlier process, write to a file of their own.
HANDLE CreateNewFile(const std::wstring& folder) {
    const std::wstring stem = folder + L"\\trace-" + std::to_wstring(GetCurrentProcessId());
    HANDLE file = INVALID_HANDLE_VALUE;
    for (int number = 1; file == INVALID_HANDLE_VALUE && number <= kMostFilesOfProcess; ++number) {
        const std::wstring path = stem + (number == 1 ? L"" : L"-" + std::to_wstring(number)) + L".jsonl";
        file = CreateFileW(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                           CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
        if (file == INVALID_HANDLE_VALUE && GetLastError() != ERROR_FILE_EXISTS) {
            break;
        }
    }
    return file;
}

} // namespace

TraceFile::TraceFile(const std::wstring& folder) noexcept {
    try {
        m_folder = folder;
        MakeFolder(folder);
        m_file = CreateNewFile(folder);
        if (!IsOpen()) {
            GiveUp(GetLastError());
        }
    } catch (const std::exception&) {
        GiveUp(ERROR_NOT_ENOUGH_MEMORY);
    }
}

TraceFile::~TraceFile() {
    if (IsOpen()) {
        CloseHandle(m_file);
    }
}

void TraceFile::Write(std::string_view line) noexcept {
    if (!IsOpen()) {
        return;
    }
    try {
        std::string text(line);
        text += '\n';
        DWORD written = 0;
        const bool isWritten =
            WriteFile(m_file, text.data(), static_cast<DWORD>(text.size()), &written, nullptr) != FALSE;
        if (!isWritten || written != text.size()) {
            GiveUp(isWritten ? ERROR_DISK_FULL : GetLastError());
        }
    } catch (const std::exception&) {
        GiveUp(ERROR_NOT_ENOUGH_MEMORY);
    }
}

void TraceFile::GiveUp(DWORD error) noexcept {
    if (IsOpen()) {
        CloseHandle(m_file);
        m_file = INVALID_HANDLE_VALUE;
    }
    try {
        const std::string text = "Ghosthand: no trace is written from here on, the script goes on. Folder " +
                                 explain::ToUtf8(m_folder) + ": " + explain::SystemText(error) + "\n";
        DWORD written = 0;
        WriteFile(GetStdHandle(STD_ERROR_HANDLE), text.data(), static_cast<DWORD>(text.size()), &written,
                  nullptr);
        engine::diagnostics::Describe(text);
    } catch (const std::exception&) {
        return; // no memory to say it with
    }
}

} // namespace trace
