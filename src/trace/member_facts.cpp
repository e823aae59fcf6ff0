#include "trace/member_facts.h"

#include <memory>
#include <string_view>

#include "automation/type_info.h"
#include "explain/utf8.h"

namespace trace {

namespace {

struct Releaser {
    void operator()(IUnknown* object) const noexcept { object->Release(); }
};
using TypeInfo = std::unique_ptr<ITypeInfo, Releaser>;

struct FunctionReleaser {
    ITypeInfo* information;
    void operator()(FUNCDESC* function) const noexcept { information->ReleaseFuncDesc(function); }
};
using Function = std::unique_ptr<FUNCDESC, FunctionReleaser>;

std::string TakeText(BSTR text) {
    std::string result = explain::ToUtf8({text, SysStringLen(text)});
    SysFreeString(text);
    return result;
}

Function FindFunction(ITypeInfo& information, const std::string& name, INVOKEKIND kind) {
    std::wstring wide = explain::ToUtf16(name);
    LPOLESTR names[] = {wide.data()};
    MEMBERID id = MEMBERID_NIL;
    if (FAILED(information.GetIDsOfNames(names, 1, &id))) {
        return {nullptr, {&information}};
    }
    for (UINT index = 0;; ++index) {
        FUNCDESC* description = nullptr;
        if (FAILED(information.GetFuncDesc(index, &description))) {
            return {nullptr, {&information}};
        }
        Function function(description, {&information});
        if (function->memid == id && function->invkind == kind) {
            return function;
        }
    }
}

std::optional<explain::Argument> DefaultOf(const PARAMDESC& description) {
    if ((description.wParamFlags & PARAMFLAG_FHASDEFAULT) == 0 || description.pparamdescex == nullptr) {
        return std::nullopt;
    }
    const VARIANT& value = description.pparamdescex->varDefaultValue;
    switch (V_VT(&value)) {
    case VT_BSTR:
        return explain::ToUtf8({V_BSTR(&value), SysStringLen(V_BSTR(&value))});
    case VT_BOOL:
        return std::int64_t{V_BOOL(&value) != VARIANT_FALSE};
    case VT_I8:
        return V_I8(&value);
    case VT_I4:
    case VT_INT:
        return std::int64_t{V_I4(&value)};
    case VT_I2:
        return std::int64_t{V_I2(&value)};
    default:
        return std::nullopt;
    }
}

// "TreeControl" for an ITreeControl**; empty for anything but a pointer to an interface.
std::string ClassOf(ITypeInfo& information, const TYPEDESC& type) {
    const TYPEDESC* described = &type;
    while (described->vt == VT_PTR) {
        described = described->lptdesc;
    }
    ITypeInfo* found = nullptr;
    if (described->vt != VT_USERDEFINED || FAILED(information.GetRefTypeInfo(described->hreftype, &found))) {
        return {};
    }
    const TypeInfo referred(found);
    BSTR name = nullptr;
    if (FAILED(referred->GetDocumentation(MEMBERID_NIL, &name, nullptr, nullptr, nullptr))) {
        return {};
    }
    const std::string text = TakeText(name);
    return text.starts_with('I') ? text.substr(1) : std::string();
}

void ReadFunction(ITypeInfo& information, const FUNCDESC& function, MemberFacts& facts) {
    BSTR names[32] = {};
    UINT count = 0;
    information.GetNames(function.memid, names, static_cast<UINT>(std::size(names)), &count);
    facts.resultClass = ClassOf(information, function.elemdescFunc.tdesc);
    for (UINT index = 0; index < count; ++index) {
        const std::string name = TakeText(names[index]);
        if (index == 0 || static_cast<SHORT>(index) > function.cParams) {
            continue; // the member's own name
        }
        const PARAMDESC& description = function.lprgelemdescParam[index - 1].paramdesc;
        if ((description.wParamFlags & PARAMFLAG_FRETVAL) == 0) {
            facts.parameters.push_back({name.find("flags") != std::string::npos, DefaultOf(description)});
        }
    }
}

MemberFacts Read(const GUID& interfaceId, std::string_view member) {
    MemberFacts facts = {std::string(member), "method", {}, {}};
    INVOKEKIND kind = INVOKE_FUNC;
    if (member.starts_with("get_") || member.starts_with("put_")) {
        facts.name.erase(0, 4);
        facts.access = member.substr(0, 3);
        kind = facts.access == "get" ? INVOKE_PROPERTYGET : INVOKE_PROPERTYPUT;
    }
    ITypeInfo* found = nullptr;
    if (SUCCEEDED(automation::DispatchTypeInfo(interfaceId, 0, &found))) {
        const TypeInfo information(found);
        if (const Function function = FindFunction(*information, facts.name, kind)) {
            ReadFunction(*information, *function, facts);
        }
    }
    return facts;
}

} // namespace

const MemberFacts& MemberFactsTable::Of(const GUID& interfaceId, const char* member) {
    const std::pair<const GUID*, std::string> key(&interfaceId, member);
    const auto known = m_known.find(key);
    return known != m_known.end() ? known->second
                                  : m_known.emplace(key, Read(interfaceId, member)).first->second;
}

} // namespace trace
