// The type library's description of an interface, on which the standard IDispatch members rest.
#pragma once

#include "automation/interfaces.h"

namespace automation {

// Empties the cache of descriptions; it fills again by itself.
void ReleaseTypeInformation() noexcept;

// The standard members for an interface and an object that implements it. Each runs in the activation
// context that the module was loaded in. The description is loaded from the registered library, or from
// the module itself where the library is not registered, and kept. `reserved` must be IID_NULL:
// DISP_E_UNKNOWNINTERFACE.
HRESULT DispatchTypeInfo(REFIID interfaceId, UINT index, ITypeInfo** information) noexcept;
// E_INVALIDARG where a name or an array is missing, or where no name is asked for.
HRESULT DispatchIdsOfNames(REFIID interfaceId, REFIID reserved, LPOLESTR* names, UINT count,
                           DISPID* ids) noexcept;
// The object must outlive the call. Arguments that do not belong to the member are refused before it runs
// (MemberTable::Check).
HRESULT DispatchInvoke(REFIID interfaceId, void* object, DISPID id, REFIID reserved, WORD flags,
                       DISPPARAMS* parameters, VARIANT* result, EXCEPINFO* exception,
                       UINT* badArgument) noexcept;

} // namespace automation
