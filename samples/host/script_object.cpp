#include "script_object.h"

#include <algorithm>
#include <iterator>
#include <oleauto.h>

namespace sample_host {
namespace {

enum Member : DISPID { kEcho = 1, kSleep, kQuit };

struct MemberName {
    const wchar_t* name;
    Member member;
};
constexpr MemberName kMembers[] = {{L"Echo", kEcho}, {L"Sleep", kSleep}, {L"Quit", kQuit}};

class ScopedVariant {
public:
    ScopedVariant() { VariantInit(&value); }
    ~ScopedVariant() { VariantClear(&value); }
    ScopedVariant(const ScopedVariant&) = delete;
    ScopedVariant& operator=(const ScopedVariant&) = delete;

    VARIANT value;
};

// The one argument as a number, `fallback` when there is none or it is no number.
int Number(const DISPPARAMS& parameters, int fallback) {
    ScopedVariant number;
    if (parameters.cArgs != 1 || FAILED(VariantChangeType(&number.value, &parameters.rgvarg[0], 0, VT_I4)))
        return fallback;
    return number.value.lVal;
}

} // namespace

HRESULT ScriptObject::QueryInterface(REFIID interfaceId, void** object) {
    const bool known = interfaceId == __uuidof(IUnknown) || interfaceId == __uuidof(IDispatch);
    *object = known ? static_cast<IDispatch*>(this) : nullptr;
    return known ? S_OK : E_NOINTERFACE;
}

HRESULT ScriptObject::GetTypeInfoCount(UINT* count) {
    *count = 0;
    return S_OK;
}

HRESULT ScriptObject::GetIDsOfNames(REFIID, LPOLESTR* names, UINT count, LCID, DISPID* ids) {
    std::fill_n(ids, count, DISPID_UNKNOWN);
    const auto known = std::ranges::find_if(
        kMembers, [&](const MemberName& member) { return lstrcmpiW(member.name, names[0]) == 0; });
    if (known == std::end(kMembers) || count != 1)
        return DISP_E_UNKNOWNNAME;
    ids[0] = known->member;
    return S_OK;
}

HRESULT ScriptObject::Invoke(DISPID member, REFIID, LCID locale, WORD, DISPPARAMS* parameters, VARIANT*,
                             EXCEPINFO* exception, UINT*) {
    switch (member) {
    case kEcho:
        return Echo(*parameters, locale);
    case kSleep:
        return Sleep(*parameters);
    case kQuit:
        return Quit(*parameters, exception);
    default:
        return DISP_E_MEMBERNOTFOUND;
    }
}

HRESULT ScriptObject::Echo(const DISPPARAMS& parameters, LCID locale) {
    std::string line;
    for (UINT index = parameters.cArgs; index-- > 0;) { // arguments come in reverse order
        ScopedVariant text;
        if (const HRESULT result = VariantChangeTypeEx(&text.value, &parameters.rgvarg[index], locale,
                                                       VARIANT_ALPHABOOL, VT_BSTR);
            FAILED(result))
            return result;
        if (!line.empty())
            line += ' ';
        line += NarrowText(text.value.bstrVal);
    }
    m_print(line);
    return S_OK;
}

HRESULT ScriptObject::Sleep(const DISPPARAMS& parameters) {
    const ULONGLONG end = GetTickCount64() + static_cast<ULONGLONG>(std::max(Number(parameters, 0), 0));
    for (ULONGLONG now = GetTickCount64(); now < end; now = GetTickCount64()) {
        MsgWaitForMultipleObjects(0, nullptr, FALSE, static_cast<DWORD>(end - now), QS_ALLINPUT);
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
            DispatchMessageA(&message);
    }
    return S_OK;
}

HRESULT ScriptObject::Quit(const DISPPARAMS& parameters, EXCEPINFO* exception) {
    m_exitCode = Number(parameters, 0);
    if (exception) {
        *exception = {};
        exception->scode = E_ABORT;
    }
    return DISP_E_EXCEPTION;
}

std::string NarrowText(const wchar_t* text) {
    if (!text || !*text)
        return {};
    const int size = WideCharToMultiByte(CP_ACP, 0, text, -1, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_ACP, 0, text, -1, narrow.data(), size, nullptr, nullptr);
    narrow.pop_back(); // the terminator
    return narrow;
}

} // namespace sample_host
