#include "server/registration.h"

#include <oleauto.h>

#include <cwchar>
#include <iterator>
#include <memory>
#include <new>
#include <system_error>

#include "hostlink/module_instance.h"
#include "server/registrar.h"

namespace server {
namespace {

[[noreturn]] void ThrowLastError() {
    const DWORD error = GetLastError();
    throw std::system_error(static_cast<int>(error != ERROR_SUCCESS ? error : ERROR_GEN_FAILURE),
                            std::system_category());
}

// The text of a script. The scripts are stored as UTF-8.
std::wstring ScriptText(HINSTANCE module, UINT script) {
    const HRSRC resource = FindResourceW(module, MAKEINTRESOURCEW(script), L"REGISTRY");
    if (resource == nullptr)
        ThrowLastError();
    const HGLOBAL loaded = LoadResource(module, resource);
    if (loaded == nullptr)
        ThrowLastError();
    const auto* bytes = static_cast<const char*>(LockResource(loaded));
    const auto byteCount = static_cast<int>(SizeofResource(module, resource));
    const int length = MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, bytes, byteCount, nullptr, 0);
    if (length == 0)
        ThrowLastError();
    std::wstring text(static_cast<std::size_t>(length), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, bytes, byteCount, text.data(), length);
    return text;
}

struct Releaser {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};
struct AttributeReleaser {
    ITypeLib* library;
    void operator()(TLIBATTR* attributes) const noexcept { library->ReleaseTLibAttr(attributes); }
};

// Whether anything is entered for this version of the library.
bool IsRegistered(const TLIBATTR& library) {
    wchar_t identifier[39];
    StringFromGUID2(library.guid, identifier, static_cast<int>(std::size(identifier)));
    wchar_t key[80];
    std::swprintf(key, std::size(key), L"TypeLib\\%ls\\%x.%x", identifier, unsigned{library.wMajorVerNum},
                  unsigned{library.wMinorVerNum});
    HKEY opened = nullptr;
    if (RegOpenKeyExW(HKEY_CLASSES_ROOT, key, 0, KEY_READ, &opened) != ERROR_SUCCESS)
        return false;
    RegCloseKey(opened);
    return true;
}

HRESULT UnregisterLibrary(ITypeLib& library) noexcept {
    TLIBATTR* found = nullptr;
    if (const HRESULT result = library.GetLibAttr(&found); FAILED(result))
        return result;
    const std::unique_ptr<TLIBATTR, AttributeReleaser> attributes(found, AttributeReleaser{&library});
    const HRESULT result = UnRegisterTypeLib(attributes->guid, attributes->wMajorVerNum,
                                             attributes->wMinorVerNum, attributes->lcid, attributes->syskind);
    return FAILED(result) && !IsRegistered(*attributes) ? S_OK : result;
}

} // namespace

HRESULT RunRegistrationScript(HINSTANCE module, UINT script, const Replacements& replacements,
                              RegistrationMode mode) noexcept {
    try {
        const std::vector<ScriptRoot> roots = ParseScript(ScriptText(module, script), replacements);
        return mode == RegistrationMode::Register ? RegisterKeys(roots) : UnregisterKeys(roots);
    } catch (...) {
        return FailureResult();
    }
}

HRESULT RegisterTypeLibrary(HINSTANCE module, RegistrationMode mode) noexcept {
    try {
        std::wstring path = hostlink::ModulePath(module);
        ITypeLib* loaded = nullptr;
        if (const HRESULT result = LoadTypeLibEx(path.c_str(), REGKIND_NONE, &loaded); FAILED(result))
            return result;
        const std::unique_ptr<ITypeLib, Releaser> library(loaded);
        if (mode == RegistrationMode::Unregister)
            return UnregisterLibrary(*library);
        std::wstring folder = path.substr(0, path.find_last_of(L"\\/"));
        return RegisterTypeLib(library.get(), path.data(), folder.data());
    } catch (...) {
        return FailureResult();
    }
}

HRESULT FailureResult() noexcept {
    try {
        throw;
    } catch (const ScriptError&) {
        return HRESULT_FROM_WIN32(ERROR_INVALID_DATA);
    } catch (const std::system_error& error) {
        return HRESULT_FROM_WIN32(static_cast<DWORD>(error.code().value()));
    } catch (const std::bad_alloc&) {
        return E_OUTOFMEMORY;
    } catch (...) {
        return E_FAIL;
    }
}

} // namespace server
