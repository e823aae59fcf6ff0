// The members of an interface as IDispatch::Invoke addresses them.
#pragma once

#include <vector>

#include "automation/interfaces.h"

namespace automation {

// Tells whether the arguments of a call belong to its member. The system's own ITypeInfo::Invoke, which
// converts and passes them, lets some through that do not, or hands what is left over to the result.
class MemberTable {
public:
    // Reads the members of a dual interface; whatever was read before goes.
    HRESULT Read(ITypeInfo& information);

    // S_OK for a call that ITypeInfo::Invoke may be given, otherwise the code for the caller:
    // - E_INVALIDARG: null parameters, a null list that is not empty, a reference to nothing
    // - DISP_E_MEMBERNOTFOUND: nothing of that identifier can be called that way
    // - DISP_E_BADPARAMCOUNT: more arguments than parameters
    // - DISP_E_PARAMNOTFOUND: a name that is no parameter, or that of one which has its argument already
    // For the last one `badArgument`, unless null, gets the argument's index.
    HRESULT Check(DISPID id, WORD flags, const DISPPARAMS* arguments, UINT* badArgument) const noexcept;

private:
    struct Member {
        DISPID id;
        INVOKEKIND kind;
        UINT parameters; // without the result
    };

    const Member* Find(DISPID id, WORD flags) const noexcept;

    std::vector<Member> m_members; // by identifier
};

} // namespace automation
