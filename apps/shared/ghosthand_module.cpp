#include "shared/ghosthand_module.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iomanip>
#include <mutex>
#include <span>
#include <sstream>
#include <stdexcept>
#include <string>
#include <system_error>
#include <vector>

#include "Ghosthand_idl.h"
#include "explain/utf8.h"
#include "hostlink/module_sends.h"

namespace apps {

namespace fs = std::filesystem;

namespace {

constexpr int kResource = 1; // carried_module.rc
constexpr wchar_t kFolderPrefix[] = L"ghosthand-";
constexpr wchar_t kFileName[] = L"ghosthand.dll";
constexpr std::size_t kHashLength = 16; // digits

[[noreturn]] void Fail(const char* what, const fs::path& path, DWORD error) {
    throw std::runtime_error(what + (" " + explain::ToUtf8(path.native())) + ": error " +
                             std::to_string(error));
}

class File {
public:
    explicit File(HANDLE handle) noexcept : m_handle(handle) {}
    ~File() {
        if (IsOpen()) {
            CloseHandle(m_handle);
        }
    }
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    bool IsOpen() const noexcept { return m_handle != INVALID_HANDLE_VALUE; }
    HANDLE Get() const noexcept { return m_handle; }

private:
    HANDLE m_handle;
};

std::span<const char> CarriedModule() {
    const HRSRC found = FindResourceW(nullptr, MAKEINTRESOURCEW(kResource), MAKEINTRESOURCEW(10));
    const HGLOBAL loaded = found == nullptr ? nullptr : LoadResource(nullptr, found);
    if (loaded == nullptr) {
        throw std::runtime_error("This program carries no module");
    }
    return {static_cast<const char*>(LockResource(loaded)), SizeofResource(nullptr, found)};
}

// FNV-1a: tells versions apart; whether a file is the carried one, its bytes say.
std::uint64_t HashOf(std::span<const char> bytes) noexcept {
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char byte : bytes) {
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
    }
    return hash;
}

bool HasContent(const File& file, std::span<const char> content) {
    LARGE_INTEGER size = {};
    if (!GetFileSizeEx(file.Get(), &size) || size.QuadPart != static_cast<LONGLONG>(content.size())) {
        return false;
    }
    std::vector<char> bytes(content.size());
    DWORD read = 0;
    return ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &read, nullptr) &&
           read == bytes.size() && std::ranges::equal(bytes, content);
}

// Under a name of its own first, so that nobody ever finds half a file.
void Unpack(const fs::path& target, std::span<const char> content) {
    if (!CreateDirectoryW(target.parent_path().c_str(), nullptr) && GetLastError() != ERROR_ALREADY_EXISTS) {
        Fail("Cannot make the folder", target.parent_path(), GetLastError());
    }
    const fs::path unfinished = target.parent_path() / (std::to_wstring(GetCurrentProcessId()) + L"-" +
                                                        std::to_wstring(GetCurrentThreadId()) + L".tmp");
    {
        const File file(CreateFileW(unfinished.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                                    FILE_ATTRIBUTE_NORMAL, nullptr));
        DWORD written = 0;
        if (!file.IsOpen() ||
            !WriteFile(file.Get(), content.data(), static_cast<DWORD>(content.size()), &written, nullptr) ||
            written != content.size()) {
            Fail("Cannot write", unfinished, GetLastError());
        }
    }
    if (!MoveFileExW(unfinished.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING)) {
        // Another tool was quicker, or a damaged file is in use: the one who opens it next will see.
        DeleteFileW(unfinished.c_str());
    }
}

// "ghosthand-1.0.0-0123456789abcdef"
bool IsFolderName(std::wstring_view name) {
    return name.starts_with(kFolderPrefix) && name.size() > std::size(kFolderPrefix) + kHashLength &&
           name[name.size() - kHashLength - 1] == L'-' &&
           name.find_first_not_of(L"0123456789abcdef", name.size() - kHashLength) == name.npos;
}

// The system refuses to delete a module that a process has mapped.
void RemoveOtherVersions(const fs::path& folder, const fs::path& current) noexcept {
    std::error_code error;
    for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
        const fs::path& other = entry->path();
        if (IsFolderName(other.filename().native()) && other != current &&
            DeleteFileW((other / kFileName).c_str())) {
            RemoveDirectoryW(other.c_str());
        }
    }
}

fs::path TemporaryFolder() {
    std::array<wchar_t, MAX_PATH + 2> path = {};
    const DWORD length = GetTempPathW(static_cast<DWORD>(path.size()), path.data());
    if (length == 0 || length >= path.size()) {
        throw std::runtime_error("The user has no temporary folder");
    }
    return path.data();
}

// Null if the file is not there with the carried content.
HMODULE LoadIfSame(const fs::path& path, std::span<const char> content) {
    // While it is open, nobody can write or delete it.
    const File file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING,
                                FILE_ATTRIBUTE_NORMAL, nullptr));
    if (!file.IsOpen() || !HasContent(file, content)) {
        return nullptr;
    }
    const HMODULE module = LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (module == nullptr) {
        Fail("Cannot load", path, GetLastError());
    }
    return module;
}

} // namespace

fs::path UnpackedModulePath(const fs::path& folder) {
    std::wostringstream name;
    name << kFolderPrefix << GHOSTHAND_VERSION << L'-' << std::hex << std::setfill(L'0')
         << std::setw(int{kHashLength}) << HashOf(CarriedModule());
    return folder / name.str() / kFileName;
}

HMODULE LoadUnpackedModule(const fs::path& folder) {
    const std::span<const char> content = CarriedModule();
    const fs::path path = UnpackedModulePath(folder);
    // More than once: other tools may be at it, too, and a scanner may hold the new file for a moment.
    constexpr int kAttempts = 10;
    constexpr DWORD kPauseMilliseconds = 50;
    for (int attempt = 0; attempt < kAttempts; ++attempt) {
        if (const HMODULE module = LoadIfSame(path, content)) {
            RemoveOtherVersions(folder, path.parent_path());
            return module;
        }
        Sleep(attempt == 0 ? 0 : kPauseMilliseconds);
        Unpack(path, content);
    }
    throw std::runtime_error("Another file stands in the place of " + explain::ToUtf8(path.native()));
}

HMODULE GhosthandModule() {
    static const HMODULE module = [] {
        const HMODULE loaded = LoadUnpackedModule(TemporaryFolder());
        if (!hostlink::SendThroughModule(loaded)) {
            throw std::runtime_error("The module does not send for other programs");
        }
        return loaded;
    }();
    return module;
}

DispatchPointer CreateEntryObject() {
    using GetClassObject = HRESULT(STDAPICALLTYPE*)(REFCLSID, REFIID, void**);
    const auto getClassObject =
        reinterpret_cast<GetClassObject>(GetProcAddress(GhosthandModule(), "DllGetClassObject"));
    IClassFactory* factory = nullptr;
    void* object = nullptr;
    HRESULT result = getClassObject == nullptr ? CLASS_E_CLASSNOTAVAILABLE
                                               : getClassObject(CLSID_Ghosthand, IID_IClassFactory,
                                                                reinterpret_cast<void**>(&factory));
    if (SUCCEEDED(result)) {
        result = factory->CreateInstance(nullptr, IID_IDispatch, &object);
        factory->Release();
    }
    if (FAILED(result)) {
        throw std::runtime_error("The module makes no entry object: " +
                                 std::system_category().message(result));
    }
    return DispatchPointer(static_cast<IDispatch*>(object));
}

} // namespace apps
