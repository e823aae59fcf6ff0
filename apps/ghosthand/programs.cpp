#include "ghosthand/programs.h"

#include <algorithm>
#include <memory>
#include <optional>

#include <tlhelp32.h>

#include "explain/utf8.h"

namespace apps {

namespace {

struct HandleCloser {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using UniqueHandle = std::unique_ptr<HANDLE, HandleCloser>;

// Null if there is none.
UniqueHandle Snapshot(DWORD what, DWORD processId) {
    // A program that loads something at this moment makes the system ask to try again.
    for (int attempt = 0; attempt < 10; ++attempt) {
        if (const HANDLE snapshot = CreateToolhelp32Snapshot(what, processId);
            snapshot != INVALID_HANDLE_VALUE) {
            return UniqueHandle(snapshot);
        }
        if (GetLastError() != ERROR_BAD_LENGTH) {
            break;
        }
    }
    return nullptr;
}

std::vector<std::wstring> ModulesOf(DWORD processId) {
    std::vector<std::wstring> modules;
    const UniqueHandle snapshot = Snapshot(TH32CS_SNAPMODULE, processId);
    MODULEENTRY32W module{};
    module.dwSize = sizeof module;
    for (BOOL has = snapshot != nullptr && Module32FirstW(snapshot.get(), &module); has;
         has = Module32NextW(snapshot.get(), &module)) {
        modules.emplace_back(module.szExePath);
    }
    return modules;
}

bool IsProgramFile(const std::filesystem::path& path) {
    const std::wstring extension = path.extension().wstring();
    return CompareStringOrdinal(extension.c_str(), -1, L".dll", -1, TRUE) == CSTR_EQUAL ||
           CompareStringOrdinal(extension.c_str(), -1, L".exe", -1, TRUE) == CSTR_EQUAL;
}

bool IsInUse(const std::filesystem::path& path) {
    const UniqueHandle file(CreateFileW(path.c_str(), GENERIC_WRITE | DELETE,
                                        FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                        OPEN_EXISTING, 0, nullptr));
    if (file.get() != INVALID_HANDLE_VALUE) {
        return false;
    }
    const DWORD error = GetLastError();
    return error == ERROR_SHARING_VIOLATION || error == ERROR_USER_MAPPED_FILE ||
           error == ERROR_LOCK_VIOLATION;
}

std::vector<std::filesystem::path> ProgramFilesIn(const std::wstring& place) {
    std::vector<std::filesystem::path> files;
    std::error_code error;
    if (!std::filesystem::is_directory(place, error)) {
        files.emplace_back(place);
        return files;
    }
    using Walk = std::filesystem::recursive_directory_iterator;
    for (Walk file(place, std::filesystem::directory_options::skip_permission_denied, error), end;
         !error && file != end; file.increment(error)) {
        if (IsProgramFile(file->path())) {
            files.push_back(file->path());
        }
    }
    return files;
}

} // namespace

std::vector<Program> RunningPrograms() {
    std::vector<Program> programs;
    const UniqueHandle snapshot = Snapshot(TH32CS_SNAPPROCESS, 0);
    PROCESSENTRY32W process{};
    process.dwSize = sizeof process;
    for (BOOL has = snapshot != nullptr && Process32FirstW(snapshot.get(), &process); has;
         has = Process32NextW(snapshot.get(), &process)) {
        // 0 would mean this process.
        if (process.th32ProcessID != 0 && process.th32ProcessID != GetCurrentProcessId()) {
            programs.push_back({process.th32ProcessID, process.szExeFile, ModulesOf(process.th32ProcessID)});
        }
    }
    return programs;
}

std::string NameOf(const Program& program) {
    return explain::ToUtf8(program.name) + " (process " + std::to_string(program.processId) + ")";
}

bool IsAtOrBelow(const std::wstring& path, const std::wstring& place) {
    std::wstring folder = place;
    while (folder.ends_with(L'\\')) {
        folder.pop_back();
    }
    if (path.size() > folder.size() && path[folder.size()] != L'\\') {
        return false;
    }
    return path.size() >= folder.size() &&
           CompareStringOrdinal(path.c_str(), static_cast<int>(folder.size()), folder.c_str(),
                                static_cast<int>(folder.size()), TRUE) == CSTR_EQUAL;
}

std::vector<std::string> HoldersOf(const std::wstring& place, DWORD except) {
    std::vector<std::string> holders;
    std::vector<std::wstring> explained;
    for (const Program& program : RunningPrograms()) {
        const auto isHeld = [&](const std::wstring& module) { return IsAtOrBelow(module, place); };
        if (std::ranges::any_of(program.modules, isHeld)) {
            if (program.processId != except) {
                holders.push_back(NameOf(program));
            }
            std::ranges::copy_if(program.modules, std::back_inserter(explained), isHeld);
        }
    }
    for (const std::filesystem::path& file : ProgramFilesIn(place)) {
        const std::wstring path = file.wstring();
        const auto isThis = [&](const std::wstring& module) { return IsAtOrBelow(module, path); };
        if (IsInUse(file) && std::ranges::none_of(explained, isThis)) {
            holders.push_back("a program that cannot be told, which holds " + explain::ToUtf8(path));
        }
    }
    return holders;
}

} // namespace apps
