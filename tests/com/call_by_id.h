// Calls by identifier with whatever arguments, and what the processor had to object to them.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <atomic>
#include <cstdio>
#include <string>
#include <vector>

#include "com/com_pointer.h"

namespace support {

// Counts the faults, such as access violations, of calls during its lifetime, also those that a system
// library catches. A fault that nobody catches ends the program; which call it was is told before.
class FaultWatch {
public:
    FaultWatch() : m_handler(AddVectoredExceptionHandler(1, Handle)) { faults = 0; }
    ~FaultWatch() { RemoveVectoredExceptionHandler(m_handler); }
    FaultWatch(const FaultWatch&) = delete;
    FaultWatch& operator=(const FaultWatch&) = delete;

    static void Begin(const std::string& call) {
        current = call;
        inside = true;
    }
    static void End() { inside = false; }
    static unsigned Count() { return faults; }

private:
    static LONG CALLBACK Handle(EXCEPTION_POINTERS* exception) {
        const DWORD code = exception->ExceptionRecord->ExceptionCode;
        // Not those by which languages and libraries tell something.
        if (inside && (code == EXCEPTION_ACCESS_VIOLATION || code == EXCEPTION_ILLEGAL_INSTRUCTION ||
                       code == EXCEPTION_STACK_OVERFLOW || code == EXCEPTION_INT_DIVIDE_BY_ZERO)) {
            ++faults;
            std::fprintf(stderr, "fault %08lX in %s\n", code, current.c_str());
        }
        return EXCEPTION_CONTINUE_SEARCH;
    }

    static inline std::atomic<unsigned> faults = 0;
    static inline std::atomic<bool> inside = false;
    static inline std::string current;
    void* m_handler;
};

struct Member {
    std::string name;
    DISPID id = 0;
    INVOKEKIND kind = INVOKE_FUNC;
    std::vector<VARTYPE> parameters; // without the result
    UINT required = 0;               // the rest is optional

    bool IsPut() const { return (kind & (INVOKE_PROPERTYPUT | INVOKE_PROPERTYPUTREF)) != 0; }
};

// What the object's own type information tells, inherited members included.
inline std::vector<Member> MembersOf(IDispatch& object) {
    ComPointer<ITypeInfo> type;
    Require(object.GetTypeInfo(0, 0, type.Receive()), "GetTypeInfo");
    TYPEATTR* attributes = nullptr;
    Require(type->GetTypeAttr(&attributes), "GetTypeAttr");
    const UINT count = attributes->cFuncs;
    type->ReleaseTypeAttr(attributes);
    std::vector<Member> members;
    for (UINT index = 0; index < count; ++index) {
        FUNCDESC* function = nullptr;
        Require(type->GetFuncDesc(index, &function), "GetFuncDesc");
        if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0) {
            Member member;
            member.id = function->memid;
            member.kind = function->invkind;
            BSTR name = nullptr;
            Require(type->GetDocumentation(member.id, &name, nullptr, nullptr, nullptr), "GetDocumentation");
            member.name = TakeText(name);
            for (SHORT parameter = 0; parameter < function->cParams; ++parameter) {
                const ELEMDESC& description = function->lprgelemdescParam[parameter];
                const USHORT flags = description.paramdesc.wParamFlags;
                if ((flags & PARAMFLAG_FRETVAL) == 0) {
                    member.parameters.push_back(description.tdesc.vt);
                    member.required += (flags & PARAMFLAG_FOPT) == 0 ? 1 : 0;
                }
            }
            members.push_back(std::move(member));
        }
        type->ReleaseFuncDesc(function);
    }
    return members;
}

// Borrowed values; the arguments as a script writes them, those by name last.
struct CallById {
    std::string what;
    WORD flags = DISPATCH_METHOD;
    std::vector<VARIANT> values;
    std::vector<DISPID> names;
    IID reserved = IID_NULL;
};

struct CallOutcome {
    HRESULT result = S_OK;
    SCODE code = S_OK; // of the exception
    UINT badArgument = 0xFFFF;
    VARTYPE resultType = VT_EMPTY;
};

inline CallOutcome Invoke(IDispatch& object, const Member& member, const CallById& call) {
    std::vector<VARIANT> values(call.values.rbegin(), call.values.rend());
    std::vector<DISPID> names(call.names.rbegin(), call.names.rend());
    DISPPARAMS parameters = {values.data(), names.data(), static_cast<UINT>(values.size()),
                             static_cast<UINT>(names.size())};
    CallOutcome outcome;
    VARIANT result;
    VariantInit(&result);
    EXCEPINFO exception = {};
    FaultWatch::Begin(member.name + ": " + call.what);
    outcome.result = object.Invoke(member.id, call.reserved, 0, call.flags, &parameters, &result, &exception,
                                   &outcome.badArgument);
    FaultWatch::End();
    outcome.code = exception.scode;
    outcome.resultType = V_VT(&result);
    VariantClear(&result);
    SysFreeString(exception.bstrDescription);
    SysFreeString(exception.bstrHelpFile);
    SysFreeString(exception.bstrSource);
    return outcome;
}

} // namespace support
