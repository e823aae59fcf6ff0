#include "automation/member_table.h"

#include <algorithm>
#include <memory>
#include <span>

namespace automation {

namespace {

struct TypeAttributesReleaser {
    ITypeInfo& information;
    void operator()(TYPEATTR* attributes) const noexcept { information.ReleaseTypeAttr(attributes); }
};

struct FunctionReleaser {
    ITypeInfo& information;
    void operator()(FUNCDESC* function) const noexcept { information.ReleaseFuncDesc(function); }
};

UINT CountParameters(const FUNCDESC& function) {
    const std::span parameters(function.lprgelemdescParam, static_cast<std::size_t>(function.cParams));
    return static_cast<UINT>(std::ranges::count_if(parameters, [](const ELEMDESC& parameter) {
        return (parameter.paramdesc.wParamFlags & (PARAMFLAG_FRETVAL | PARAMFLAG_FLCID)) == 0;
    }));
}

bool AreReadable(const DISPPARAMS* arguments) {
    if (arguments == nullptr || arguments->cNamedArgs > arguments->cArgs ||
        (arguments->cArgs != 0 && arguments->rgvarg == nullptr) ||
        (arguments->cNamedArgs != 0 && arguments->rgdispidNamedArgs == nullptr)) {
        return false;
    }
    return std::ranges::none_of(std::span(arguments->rgvarg, arguments->cArgs), [](const VARIANT& value) {
        return (V_VT(&value) & VT_BYREF) != 0 && V_BYREF(&value) == nullptr;
    });
}

} // namespace

HRESULT MemberTable::Read(ITypeInfo& information) {
    m_members.clear();
    TYPEATTR* found = nullptr;
    if (const HRESULT result = information.GetTypeAttr(&found); FAILED(result)) {
        return result;
    }
    const std::unique_ptr<TYPEATTR, TypeAttributesReleaser> attributes(found,
                                                                       TypeAttributesReleaser{information});
    for (UINT index = 0; index < attributes->cFuncs; ++index) {
        FUNCDESC* description = nullptr;
        if (const HRESULT result = information.GetFuncDesc(index, &description); FAILED(result)) {
            return result;
        }
        const std::unique_ptr<FUNCDESC, FunctionReleaser> function(description,
                                                                   FunctionReleaser{information});
        // Those of IUnknown and IDispatch are restricted.
        if ((function->wFuncFlags & FUNCFLAG_FRESTRICTED) == 0) {
            m_members.push_back({function->memid, function->invkind, CountParameters(*function)});
        }
    }
    std::ranges::stable_sort(m_members, {}, &Member::id);
    return S_OK;
}

const MemberTable::Member* MemberTable::Find(DISPID id, WORD flags) const noexcept {
    // A property's get and its put share an identifier.
    const auto same = std::ranges::equal_range(m_members, id, {}, &Member::id);
    const auto member =
        std::ranges::find_if(same, [&](const Member& candidate) { return (candidate.kind & flags) != 0; });
    return member == same.end() ? nullptr : &*member;
}

HRESULT MemberTable::Check(DISPID id, WORD flags, const DISPPARAMS* arguments,
                           UINT* badArgument) const noexcept {
    if (!AreReadable(arguments)) {
        return E_INVALIDARG;
    }
    const Member* const member = Find(id, flags);
    if (member == nullptr) {
        return DISP_E_MEMBERNOTFOUND;
    }
    if (arguments->cArgs > member->parameters) {
        return DISP_E_BADPARAMCOUNT;
    }
    const std::span names(arguments->rgdispidNamedArgs, arguments->cNamedArgs);
    const UINT byPosition = arguments->cArgs - arguments->cNamedArgs;
    for (auto name = names.begin(); name != names.end(); ++name) {
        // The new value of a property is its last parameter.
        const bool isValue =
            *name == DISPID_PROPERTYPUT && member->kind != INVOKE_FUNC && member->kind != INVOKE_PROPERTYGET;
        const UINT place = isValue ? member->parameters - 1 : static_cast<UINT>(*name);
        if (place >= member->parameters || place < byPosition ||
            std::find(names.begin(), name, *name) != name) {
            if (badArgument != nullptr) {
                *badArgument = static_cast<UINT>(name - names.begin());
            }
            return DISP_E_PARAMNOTFOUND;
        }
    }
    return S_OK;
}

} // namespace automation
