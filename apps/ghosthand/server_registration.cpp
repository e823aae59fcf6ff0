#include "ghosthand/server_registration.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <filesystem>
#include <memory>

#include <objbase.h>
#include <oleauto.h>

#include "Ghosthand_idl.h"
#include "explain/utf8.h"

namespace apps {

namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes";

struct KeyCloser {
    using pointer = HKEY;
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};
using UniqueKey = std::unique_ptr<HKEY, KeyCloser>;

struct ModuleCloser {
    using pointer = HMODULE;
    void operator()(HMODULE module) const noexcept { FreeLibrary(module); }
};
using UniqueModule = std::unique_ptr<HMODULE, ModuleCloser>;

HKEY RootOf(Scope scope) {
    return scope == Scope::CurrentUser ? HKEY_CURRENT_USER : HKEY_LOCAL_MACHINE;
}

// HKEY_CLASSES_ROOT of this process stands for another key, for its lifetime.
class ClassesRoot {
public:
    // Makes the key if there is none. Status(): the first failure.
    ClassesRoot(HKEY root, const std::wstring& path) {
        HKEY key = nullptr;
        m_status =
            RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, KEY_READ | KEY_WRITE, nullptr, &key, nullptr);
        m_key.reset(key);
        if (m_status == ERROR_SUCCESS) {
            m_status = RegOverridePredefKey(HKEY_CLASSES_ROOT, key);
        }
    }
    ~ClassesRoot() { RegOverridePredefKey(HKEY_CLASSES_ROOT, nullptr); }
    ClassesRoot(const ClassesRoot&) = delete;
    ClassesRoot& operator=(const ClassesRoot&) = delete;

    LSTATUS Status() const { return m_status; }
    HKEY Key() const { return m_key.get(); }

private:
    UniqueKey m_key;
    LSTATUS m_status;
};

// The registration of type libraries heeds another HKEY_CLASSES_ROOT only when it has been asked to. The
// function is documented as one to be looked up at run time.
void LetTypeLibrariesFollow() {
    const HMODULE automation = GetModuleHandleW(L"oleaut32.dll");
    if (const FARPROC enable =
            automation == nullptr ? nullptr : GetProcAddress(automation, "OaEnablePerUserTLibRegistration")) {
        reinterpret_cast<void(WINAPI*)()>(enable)();
    }
}

HRESULT CallEntryPoint(const std::wstring& path, const char* name) {
    const UniqueModule module(LoadLibraryExW(path.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH));
    if (module == nullptr) {
        return HRESULT_FROM_WIN32(GetLastError());
    }
    const FARPROC function = GetProcAddress(module.get(), name);
    if (function == nullptr) {
        return HRESULT_FROM_WIN32(ERROR_PROC_NOT_FOUND);
    }
    LetTypeLibrariesFollow();
    return reinterpret_cast<HRESULT(WINAPI*)()>(function)();
}

HRESULT CallInScope(const std::wstring& path, const char* name, Scope scope) {
    const ClassesRoot root(RootOf(scope), kClasses);
    if (root.Status() != ERROR_SUCCESS) {
        return HRESULT_FROM_WIN32(root.Status());
    }
    return CallEntryPoint(path, name);
}

struct Value {
    LSTATUS status = ERROR_SUCCESS;
    DWORD type = 0;
    std::vector<BYTE> bytes;
    bool operator==(const Value&) const = default;
};

Value ReadValue(HKEY key, const wchar_t* name) {
    Value value;
    DWORD size = 0;
    value.status = RegQueryValueExW(key, name, nullptr, &value.type, nullptr, &size);
    value.bytes.resize(size);
    if (value.status == ERROR_SUCCESS) {
        value.status = RegQueryValueExW(key, name, nullptr, &value.type, value.bytes.data(), &size);
    }
    return value;
}

std::wstring TextOfValue(const Value& value) {
    if (value.status != ERROR_SUCCESS || (value.type != REG_SZ && value.type != REG_EXPAND_SZ)) {
        return {};
    }
    std::wstring text(reinterpret_cast<const wchar_t*>(value.bytes.data()),
                      value.bytes.size() / sizeof(wchar_t));
    return text.substr(0, text.find(L'\0'));
}

UniqueKey OpenKey(HKEY parent, const std::wstring& path, REGSAM view = 0) {
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ | view, &key);
    return UniqueKey(status == ERROR_SUCCESS ? key : nullptr);
}

struct Comparison {
    int present = 0; // keys of a whole registration that are there
    std::vector<std::string> faults;
};

// The keys that lie above a registration's own and belong to everybody, the lower ones first.
constexpr std::array kSharedKeys = {L"AppID",     L"CLSID",   L"Wow6432Node\\Interface",
                                    L"Interface", L"TypeLib", L"Wow6432Node"};

bool IsShared(const std::wstring& path) {
    return std::ranges::any_of(kSharedKeys, [&](const wchar_t* shared) {
        return CompareStringOrdinal(path.c_str(), -1, shared, -1, TRUE) == CSTR_EQUAL;
    });
}

// Many users have no classes of their own but these.
void RemoveEmptySharedKeys() {
    const UniqueKey classes = OpenKey(HKEY_CURRENT_USER, kClasses);
    for (const wchar_t* shared : kSharedKeys) {
        DWORD keys = 0;
        DWORD values = 0;
        const UniqueKey key = classes == nullptr ? nullptr : OpenKey(classes.get(), shared);
        if (key != nullptr &&
            RegQueryInfoKeyW(key.get(), nullptr, nullptr, nullptr, &keys, nullptr, nullptr, &values, nullptr,
                             nullptr, nullptr, nullptr) == ERROR_SUCCESS &&
            keys == 0 && values == 0) {
            RegDeleteKeyW(classes.get(), shared);
        }
    }
}

void CompareValues(HKEY whole, HKEY found, const std::wstring& path, Comparison& comparison) {
    for (DWORD index = 0;; ++index) {
        std::array<wchar_t, 256> name;
        auto length = static_cast<DWORD>(name.size());
        if (RegEnumValueW(whole, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            return;
        }
        const Value expected = ReadValue(whole, name.data());
        if (const Value actual = ReadValue(found, name.data()); actual != expected) {
            const std::wstring place = path + (length == 0 ? L"" : L" " + std::wstring(name.data()));
            comparison.faults.push_back(explain::ToUtf8(place + L" is '" + TextOfValue(actual) + L"', not '" +
                                                        TextOfValue(expected) + L"'"));
        }
    }
}

void CompareKeys(HKEY whole, HKEY found, const std::wstring& path, Comparison& comparison) {
    CompareValues(whole, found, path, comparison);
    for (DWORD index = 0;; ++index) {
        std::array<wchar_t, 256> name;
        auto length = static_cast<DWORD>(name.size());
        if (RegEnumKeyExW(whole, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS) {
            return;
        }
        const UniqueKey expected = OpenKey(whole, name.data());
        const UniqueKey actual = OpenKey(found, name.data());
        const std::wstring below = path.empty() ? name.data() : path + L"\\" + name.data();
        if (actual == nullptr) {
            comparison.faults.push_back(explain::ToUtf8(below) + " is missing");
            continue;
        }
        comparison.present += IsShared(below) ? 0 : 1;
        CompareKeys(expected.get(), actual.get(), below, comparison);
    }
}

// A whole registration of a module, in a place where nobody else looks, for its lifetime.
class WholeRegistration {
public:
    explicit WholeRegistration(const std::wstring& path)
        : m_place(L"Software\\Ghosthand.check." + std::to_wstring(GetCurrentProcessId())) {
        const ClassesRoot root(HKEY_CURRENT_USER, m_place);
        m_made = root.Status() == ERROR_SUCCESS && SUCCEEDED(CallEntryPoint(path, "DllRegisterServer"));
    }
    ~WholeRegistration() { RegDeleteTreeW(HKEY_CURRENT_USER, m_place.c_str()); }
    WholeRegistration(const WholeRegistration&) = delete;
    WholeRegistration& operator=(const WholeRegistration&) = delete;

    // No value if the module could not be asked.
    std::optional<Comparison> CompareWith(HKEY found) const {
        const UniqueKey whole = m_made ? OpenKey(HKEY_CURRENT_USER, m_place) : nullptr;
        if (whole == nullptr) {
            return std::nullopt;
        }
        Comparison comparison;
        CompareKeys(whole.get(), found, {}, comparison);
        return comparison;
    }

private:
    std::wstring m_place;
    bool m_made = false;
};

std::wstring ModuleKey() {
    std::array<wchar_t, 64> identifier;
    StringFromGUID2(CLSID_Ghosthand, identifier.data(), static_cast<int>(identifier.size()));
    return std::wstring(L"CLSID\\") + identifier.data() + L"\\InprocServer32";
}

std::wstring OwnPath() {
    std::wstring path(32768, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

} // namespace

std::wstring FullPath(const std::wstring& path) {
    std::wstring full(32768, L'\0');
    full.resize(GetFullPathNameW(path.c_str(), static_cast<DWORD>(full.size()), full.data(), nullptr));
    return full.empty() ? path : full;
}

std::wstring NeighbourModule() {
    const std::filesystem::path folder = std::filesystem::path(OwnPath()).parent_path();
    for (const auto& place : {folder / L"ghosthand.dll", folder / L"..\\..\\src\\server\\ghosthand.dll"}) {
        const std::wstring path = FullPath(place.wstring());
        if (KindOfFile(path) != ModuleKind::Missing) {
            return path;
        }
    }
    return {};
}

ModuleKind KindOfFile(const std::wstring& path) {
    const HANDLE file =
        CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                    nullptr, OPEN_EXISTING, 0, nullptr);
    if (file == INVALID_HANDLE_VALUE) {
        return ModuleKind::Missing;
    }
    std::array<std::byte, kModuleHeaderBytes> start{};
    DWORD size = 0;
    ReadFile(file, start.data(), static_cast<DWORD>(start.size()), &size, nullptr);
    CloseHandle(file);
    return KindOfModule(std::span(start).first(size));
}

std::string FileVersion(const std::wstring& path) {
    DWORD ignored = 0;
    std::vector<BYTE> block(GetFileVersionInfoSizeW(path.c_str(), &ignored));
    VS_FIXEDFILEINFO* version = nullptr;
    UINT size = 0;
    if (block.empty() ||
        !GetFileVersionInfoW(path.c_str(), 0, static_cast<DWORD>(block.size()), block.data()) ||
        !VerQueryValueW(block.data(), L"\\", reinterpret_cast<void**>(&version), &size)) {
        return {};
    }
    return std::to_string(HIWORD(version->dwFileVersionMS)) + "." +
           std::to_string(LOWORD(version->dwFileVersionMS)) + "." +
           std::to_string(HIWORD(version->dwFileVersionLS)) + "." +
           std::to_string(LOWORD(version->dwFileVersionLS));
}

HRESULT RegisterModule(const std::wstring& path, Scope scope) {
    return CallInScope(path, "DllRegisterServer", scope);
}

HRESULT UnregisterModule(const std::wstring& path, Scope scope) {
    const HRESULT result = CallInScope(path, "DllUnregisterServer", scope);
    if (SUCCEEDED(result) && scope == Scope::CurrentUser) {
        RemoveEmptySharedKeys();
    }
    return result;
}

std::optional<Registration> FindRegistration(Scope scope, const std::wstring& substitute) {
    const UniqueKey classes = OpenKey(RootOf(scope), kClasses);
    if (classes == nullptr) {
        return std::nullopt;
    }
    Registration registration;
    if (const UniqueKey module = OpenKey(classes.get(), ModuleKey())) {
        registration.path = TextOfValue(ReadValue(module.get(), nullptr));
    }
    const bool isRegisteredUsable = KindOfFile(registration.path) == ModuleKind::Bits64;
    const std::wstring& asked = isRegisteredUsable ? registration.path : substitute;
    if (!asked.empty()) {
        const std::optional<Comparison> comparison = WholeRegistration(asked).CompareWith(classes.get());
        if (comparison && registration.path.empty() && comparison->present == 0) {
            return std::nullopt;
        }
        // Compared with another file, everything that names the file differs.
        if (comparison && isRegisteredUsable) {
            registration.faults = comparison->faults;
        }
        return registration;
    }
    return registration.path.empty() ? std::nullopt : std::optional(registration);
}

bool IsRegisteredFor32Bit() {
    for (const HKEY root : {HKEY_CURRENT_USER, HKEY_LOCAL_MACHINE}) {
        if (const UniqueKey classes = OpenKey(root, kClasses, KEY_WOW64_32KEY);
            classes != nullptr && OpenKey(classes.get(), L"Wow6432Node\\" + ModuleKey()) != nullptr) {
            return true;
        }
    }
    return false;
}

std::string ResultText(HRESULT result) {
    std::array<char, 16> number;
    std::snprintf(number.data(), number.size(), "0x%08lX", static_cast<unsigned long>(result));
    std::array<wchar_t, 512> text;
    DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                       static_cast<DWORD>(result), 0, text.data(), static_cast<DWORD>(text.size()), nullptr);
    while (length > 0 && text[length - 1] <= L' ') {
        --length;
    }
    return number.data() +
           (length == 0 ? "" : " (" + explain::ToUtf8(std::wstring_view(text.data(), length)) + ")");
}

} // namespace apps
