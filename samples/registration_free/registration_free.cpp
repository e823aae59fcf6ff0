// Uses Ghosthand without a registration: the manifest among this program's resources names the assembly
// Ghosthand.Classes, whose manifest and module lie beside the program.
//   registration_free [PROGRAM]    writes the caption of its main window; without PROGRAM that of sample_host
#include <cstdio>
#include <memory>

#include <windows.h>

#include <oleauto.h>

namespace {

struct Releaser {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};
using Object = std::unique_ptr<IDispatch, Releaser>;

struct TextFreer {
    void operator()(BSTR text) const noexcept { SysFreeString(text); }
};
using Text = std::unique_ptr<OLECHAR, TextFreer>;

// Calls a member by its name, as a script does, with at most one text. `result` is the caller's to clear.
HRESULT Call(IDispatch& object, const wchar_t* member, WORD kind, const wchar_t* argument, VARIANT& result) {
    auto* name = const_cast<LPOLESTR>(member);
    DISPID id = DISPID_UNKNOWN;
    if (const HRESULT found = object.GetIDsOfNames(IID_NULL, &name, 1, LOCALE_USER_DEFAULT, &id);
        FAILED(found)) {
        return found;
    }
    const Text text(SysAllocString(argument));
    VARIANT value{};
    V_VT(&value) = VT_BSTR;
    V_BSTR(&value) = text.get();
    DISPPARAMS parameters{&value, nullptr, argument == nullptr ? 0u : 1u, 0};
    return object.Invoke(id, IID_NULL, LOCALE_USER_DEFAULT, kind, &parameters, &result, nullptr, nullptr);
}

int Fail(const char* what, HRESULT result) {
    std::printf("%s failed: 0x%08lX\n", what, static_cast<unsigned long>(result));
    return 1;
}

int Run(const wchar_t* program) {
    CLSID identifier{};
    if (const HRESULT result = CLSIDFromProgID(L"Ghosthand.Ghosthand", &identifier); FAILED(result)) {
        return Fail("Finding the class", result);
    }
    IDispatch* created = nullptr;
    if (const HRESULT result = CoCreateInstance(identifier, nullptr, CLSCTX_INPROC_SERVER, IID_IDispatch,
                                                reinterpret_cast<void**>(&created));
        FAILED(result)) {
        return Fail("Creating the object", result);
    }
    const Object ghosthand(created);
    VARIANT found{};
    if (const HRESULT result = Call(*ghosthand, L"MainWindow", DISPATCH_METHOD, program, found);
        FAILED(result)) {
        return Fail("MainWindow", result);
    }
    if (V_VT(&found) != VT_DISPATCH || V_DISPATCH(&found) == nullptr) {
        std::printf("%ls does not run. Start it first.\n", program);
        return 1;
    }
    const Object window(V_DISPATCH(&found));
    VARIANT text{};
    if (const HRESULT result = Call(*window, L"Text", DISPATCH_PROPERTYGET, nullptr, text); FAILED(result)) {
        return Fail("Text", result);
    }
    std::printf("Found: %ls\n", V_BSTR(&text));
    VariantClear(&text);
    return 0;
}

} // namespace

int wmain(int count, wchar_t** arguments) {
    if (const HRESULT result = CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED); FAILED(result)) {
        return Fail("Starting COM", result);
    }
    const int code = Run(count > 1 ? arguments[1] : L"sample_host");
    CoUninitialize();
    return code;
}
