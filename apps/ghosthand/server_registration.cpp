#include "ghosthand/server_registration.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cwchar>
#include <filesystem>
#include <memory>

#include <objbase.h>
#include <oleauto.h>

#include "Ghosthand_idl.h"
#include "explain/system_text.h"
#include "explain/utf8.h"
#include "server/registration_script.h"

namespace apps {

namespace {

constexpr wchar_t kClasses[] = L"Software\\Classes";

struct KeyCloser {
    using pointer = HKEY;
    void operator()(HKEY key) const noexcept { RegCloseKey(key); }
};
using UniqueKey = std::unique_ptr<HKEY, KeyCloser>;

struct Releaser {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};
template <class Interface>
using Owned = std::unique_ptr<Interface, Releaser>;

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

UniqueKey OpenKey(HKEY parent, const std::wstring& path, REGSAM view = 0) {
    HKEY key = nullptr;
    const LSTATUS status = RegOpenKeyExW(parent, path.c_str(), 0, KEY_READ | view, &key);
    return UniqueKey(status == ERROR_SUCCESS ? key : nullptr);
}

// No value where there is no key or no text of that name; a null name is the default value.
std::optional<std::wstring> ReadText(HKEY parent, const std::wstring& path, const wchar_t* name) {
    DWORD size = 0;
    if (RegGetValueW(parent, path.c_str(), name, RRF_RT_REG_SZ, nullptr, nullptr, &size) != ERROR_SUCCESS) {
        return std::nullopt;
    }
    std::wstring text(size / sizeof(wchar_t), L'\0');
    if (RegGetValueW(parent, path.c_str(), name, RRF_RT_REG_SZ, nullptr, text.data(), &size) !=
        ERROR_SUCCESS) {
        return std::nullopt;
    }
    return text.substr(0, text.find(L'\0'));
}

constexpr wchar_t kApplicationKey[] = L"AppID\\Ghosthand.DLL";

// The keys that lie above a registration's own and belong to everybody, the lower ones first.
constexpr std::array kSharedKeys = {L"AppID",     L"CLSID",   L"Wow6432Node\\Interface",
                                    L"Interface", L"TypeLib", L"Wow6432Node"};

std::wstring IdentifierText(const GUID& identifier) {
    std::array<wchar_t, 64> text;
    StringFromGUID2(identifier, text.data(), static_cast<int>(text.size()));
    return text.data();
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

struct Comparison {
    int present = 0; // keys of a whole registration that are there
    std::vector<std::string> faults;
};

// What a module registers, compared with what there is below a key. The module's code does not run, and
// nothing is written.
class RegistrationComparison {
public:
    RegistrationComparison(HKEY classes, std::wstring module)
        : m_classes(classes), m_module(std::move(module)) {}

    // No value if the module could not be read.
    std::optional<Comparison> Run() {
        const UniqueModule module(LoadLibraryExW(m_module.c_str(), nullptr,
                                                 LOAD_LIBRARY_AS_DATAFILE | LOAD_LIBRARY_AS_IMAGE_RESOURCE));
        ITypeLib* library = nullptr;
        if (module == nullptr || FAILED(LoadTypeLibEx(m_module.c_str(), REGKIND_NONE, &library))) {
            return std::nullopt;
        }
        const Owned<ITypeLib> owned(library);
        EnumResourceNamesW(module.get(), L"REGISTRY", CompareScript, reinterpret_cast<LONG_PTR>(this));
        CompareLibrary(*library);
        return m_comparison;
    }

private:
    static BOOL CALLBACK CompareScript(HMODULE module, LPCWSTR type, LPWSTR name, LONG_PTR parameter) {
        auto& self = *reinterpret_cast<RegistrationComparison*>(parameter);
        const HRSRC resource = FindResourceW(module, name, type);
        const HGLOBAL loaded = resource == nullptr ? nullptr : LoadResource(module, resource);
        if (loaded == nullptr) {
            return TRUE;
        }
        const std::string_view text(static_cast<const char*>(LockResource(loaded)),
                                    SizeofResource(module, resource));
        // The identifier is the module's own affair: whichever is registered has to be used throughout.
        const std::wstring application = ReadText(self.m_classes, kApplicationKey, L"AppID").value_or(L"{?}");
        try {
            for (const server::ScriptRoot& root : server::ParseScript(
                     explain::ToUtf16(text), {{L"MODULE", self.m_module}, {L"APPID", application}})) {
                self.CompareKeys(root.keys, {});
            }
        } catch (const server::ScriptError& error) {
            self.m_comparison.faults.emplace_back(error.what());
        }
        return TRUE;
    }

    void CompareKeys(const std::vector<server::ScriptKey>& keys, const std::wstring& above) {
        for (const server::ScriptKey& key : keys) {
            const std::wstring path = above.empty() ? key.name : above + L"\\" + key.name;
            if (!CompareKey(path, key.rule != server::KeyRule::NoRemove)) {
                continue;
            }
            if (key.defaultValue) {
                CompareValue(path, nullptr, *key.defaultValue);
            }
            for (const server::NamedValue& value : key.values) {
                CompareValue(path, value.name.c_str(), value.value);
            }
            CompareKeys(key.keys, path);
        }
    }

    bool CompareKey(const std::wstring& path, bool isOwn) {
        if (OpenKey(m_classes, path) == nullptr) {
            m_comparison.faults.push_back(explain::ToUtf8(path) + " is missing");
            return false;
        }
        m_comparison.present += isOwn ? 1 : 0;
        return true;
    }

    // The scripts have texts alone.
    void CompareValue(const std::wstring& path, const wchar_t* name, const server::ScriptValue& value) {
        if (const auto* text = std::get_if<std::wstring>(&value)) {
            CompareText(path, name, *text);
        }
    }

    void CompareText(const std::wstring& path, const wchar_t* name, const std::wstring& expected) {
        const std::wstring actual = ReadText(m_classes, path, name).value_or(L"");
        if (CompareStringOrdinal(actual.c_str(), -1, expected.c_str(), -1, TRUE) != CSTR_EQUAL) {
            m_comparison.faults.push_back(
                explain::ToUtf8(path + (name == nullptr ? L"" : std::wstring(L" ") + name) + L" is '" +
                                actual + L"', not '" + expected + L"'"));
        }
    }

    void CompareLibrary(ITypeLib& library) {
        TLIBATTR* attributes = nullptr;
        if (FAILED(library.GetLibAttr(&attributes))) {
            return;
        }
        const std::wstring identifier = IdentifierText(attributes->guid);
        std::array<wchar_t, 64> place;
        std::swprintf(place.data(), place.size(), L"\\%x.%x\\%lx\\%ls", attributes->wMajorVerNum,
                      attributes->wMinorVerNum, attributes->lcid,
                      attributes->syskind == SYS_WIN64 ? L"win64" : L"win32");
        library.ReleaseTLibAttr(attributes);
        if (const std::wstring path = L"TypeLib\\" + identifier + place.data(); CompareKey(path, true)) {
            CompareText(path, nullptr, m_module);
        }
        for (UINT index = 0; index < library.GetTypeInfoCount(); ++index) {
            CompareInterface(library, index, identifier);
        }
    }

    void CompareInterface(ITypeLib& library, UINT index, const std::wstring& libraryIdentifier) {
        ITypeInfo* information = nullptr;
        if (FAILED(library.GetTypeInfo(index, &information))) {
            return;
        }
        const Owned<ITypeInfo> owned(information);
        TYPEATTR* attributes = nullptr;
        if (FAILED(information->GetTypeAttr(&attributes))) {
            return;
        }
        const bool isInterface =
            attributes->typekind == TKIND_INTERFACE || attributes->typekind == TKIND_DISPATCH;
        const std::wstring path = L"Interface\\" + IdentifierText(attributes->guid) + L"\\TypeLib";
        information->ReleaseTypeAttr(attributes);
        if (isInterface && CompareKey(path, true)) {
            CompareText(path, nullptr, libraryIdentifier);
        }
    }

    HKEY m_classes;
    std::wstring m_module;
    Comparison m_comparison;
};

std::wstring ModuleKey() {
    return L"CLSID\\" + IdentifierText(CLSID_Ghosthand) + L"\\InprocServer32";
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
        std::wstring path = FullPath(place.wstring());
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
    registration.path = ReadText(classes.get(), ModuleKey(), nullptr).value_or(L"");
    const bool isUsable = KindOfFile(registration.path) == ModuleKind::Bits64;
    const std::wstring& module = isUsable ? registration.path : substitute;
    const std::optional<Comparison> comparison =
        module.empty() ? std::nullopt : RegistrationComparison(classes.get(), module).Run();
    if (registration.path.empty() && (!comparison || comparison->present == 0)) {
        return std::nullopt;
    }
    // Compared with another file, everything that names the file differs.
    if (comparison && isUsable) {
        registration.faults = comparison->faults;
    }
    return registration;
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
    const std::string text = explain::SystemText(static_cast<DWORD>(result));
    return number.data() + (text.empty() ? text : " (" + text + ")");
}

} // namespace apps
