// What a script that runs inside the host sees as "Host", and as "WScript", so that the same script
// runs in cscript as well:
//   Host.Echo text, ...       one line of output
//   Host.Sleep milliseconds   waits; messages of the script's thread go on
//   Host.Quit code            ends the script (not under On Error Resume Next) with that exit code
#pragma once

#include <functional>
#include <oaidl.h>
#include <optional>
#include <string>
#include <windows.h>

namespace sample_host {

// Outlives the script engine by construction, so that it needs no count of references.
class ScriptObject : public IDispatch {
public:
    explicit ScriptObject(std::function<void(const std::string&)> print) : m_print(std::move(print)) {}
    virtual ~ScriptObject() = default;

    // What Quit was called with, none if it was not.
    std::optional<int> ExitCode() const { return m_exitCode; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interfaceId, void** object) override;
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }
    HRESULT STDMETHODCALLTYPE GetTypeInfoCount(UINT* count) override;
    HRESULT STDMETHODCALLTYPE GetTypeInfo(UINT, LCID, ITypeInfo**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) override;
    HRESULT STDMETHODCALLTYPE Invoke(DISPID member, REFIID, LCID locale, WORD flags, DISPPARAMS* parameters,
                                     VARIANT* result, EXCEPINFO* exception, UINT* argument) override;

private:
    HRESULT Echo(const DISPPARAMS& parameters, LCID locale);
    HRESULT Sleep(const DISPPARAMS& parameters);
    HRESULT Quit(const DISPPARAMS& parameters, EXCEPINFO* exception);

    std::function<void(const std::string&)> m_print;
    std::optional<int> m_exitCode;
};

// ANSI, the system code page; a null pointer is the empty text.
std::string NarrowText(const wchar_t* text);

} // namespace sample_host
