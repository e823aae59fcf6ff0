#include "script_engine.h"

#include "script_object.h"

#include <activscp.h>
#include <windows.h>

namespace sample_host {
namespace {

// Releases what it points at.
template <typename Interface>
class ComPointer {
public:
    ComPointer() = default;
    ~ComPointer() {
        if (m_object)
            m_object->Release();
    }
    ComPointer(const ComPointer&) = delete;
    ComPointer& operator=(const ComPointer&) = delete;

    Interface* operator->() const { return m_object; }
    void** Receive() { return reinterpret_cast<void**>(&m_object); }

private:
    Interface* m_object = nullptr;
};

// Outlives the engine by construction, so that it needs no count of references.
class ScriptSite : public IActiveScriptSite {
public:
    ScriptSite(ScriptObject& object, std::string name, std::function<void(const std::string&)> print)
        : m_object(object), m_name(std::move(name)), m_print(std::move(print)) {}
    virtual ~ScriptSite() = default;

    bool Failed() const { return m_failed; }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID interfaceId, void** object) override {
        const bool known = interfaceId == __uuidof(IUnknown) || interfaceId == __uuidof(IActiveScriptSite);
        *object = known ? static_cast<IActiveScriptSite*>(this) : nullptr;
        return known ? S_OK : E_NOINTERFACE;
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return 1; }
    ULONG STDMETHODCALLTYPE Release() override { return 1; }

    HRESULT STDMETHODCALLTYPE GetLCID(LCID*) override { return E_NOTIMPL; } // the system's default
    HRESULT STDMETHODCALLTYPE GetItemInfo(LPCOLESTR, DWORD mask, IUnknown** item, ITypeInfo** type) override {
        if (mask & SCRIPTINFO_ITYPEINFO)
            *type = nullptr;
        if (mask & SCRIPTINFO_IUNKNOWN)
            *item = &m_object;
        return S_OK;
    }
    HRESULT STDMETHODCALLTYPE GetDocVersionString(BSTR*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE OnScriptTerminate(const VARIANT*, const EXCEPINFO*) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnStateChange(SCRIPTSTATE) override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnEnterScript() override { return S_OK; }
    HRESULT STDMETHODCALLTYPE OnLeaveScript() override { return S_OK; }

    HRESULT STDMETHODCALLTYPE OnScriptError(IActiveScriptError* error) override {
        if (m_object.ExitCode()) // Quit leaves the script by way of an error
            return S_OK;
        m_failed = true;
        EXCEPINFO exception{};
        DWORD context = 0;
        ULONG line = 0;
        LONG column = 0;
        error->GetExceptionInfo(&exception);
        error->GetSourcePosition(&context, &line, &column);
        char number[16];
        wsprintfA(number, "0x%08X", static_cast<unsigned>(exception.scode));
        m_print(m_name + "(" + std::to_string(line + 1) + "): error " + number + " " +
                NarrowText(exception.bstrDescription));
        SysFreeString(exception.bstrDescription);
        SysFreeString(exception.bstrSource);
        SysFreeString(exception.bstrHelpFile);
        return S_OK;
    }

private:
    ScriptObject& m_object;
    std::string m_name;
    std::function<void(const std::string&)> m_print;
    bool m_failed = false;
};

bool CreateEngine(const wchar_t* language, ComPointer<IActiveScript>& engine,
                  ComPointer<IActiveScriptParse>& parser) {
    CLSID classId;
    return SUCCEEDED(CLSIDFromProgID(language, &classId)) &&
           SUCCEEDED(CoCreateInstance(classId, nullptr, CLSCTX_INPROC_SERVER, __uuidof(IActiveScript),
                                      engine.Receive())) &&
           SUCCEEDED(engine->QueryInterface(__uuidof(IActiveScriptParse), parser.Receive()));
}

} // namespace

int RunScriptText(const wchar_t* language, const std::string& name, const std::wstring& text,
                  const std::function<void(const std::string&)>& print) {
    ScriptObject object(print);
    ScriptSite site(object, name, print);
    ComPointer<IActiveScript> engine;
    ComPointer<IActiveScriptParse> parser;
    if (!CreateEngine(language, engine, parser)) {
        print(name + ": the system has no engine for this script");
        return 1;
    }
    parser->InitNew();
    engine->SetScriptSite(&site);
    engine->AddNamedItem(L"Host", SCRIPTITEM_ISVISIBLE);
    engine->AddNamedItem(L"WScript", SCRIPTITEM_ISVISIBLE);
    const HRESULT parsed = parser->ParseScriptText(text.c_str(), nullptr, nullptr, nullptr, 0, 0,
                                                   SCRIPTTEXT_ISVISIBLE, nullptr, nullptr);
    const HRESULT run = SUCCEEDED(parsed) ? engine->SetScriptState(SCRIPTSTATE_STARTED) : parsed;
    engine->Close();
    return object.ExitCode().value_or(site.Failed() || FAILED(run) ? 1 : 0);
}

} // namespace sample_host
