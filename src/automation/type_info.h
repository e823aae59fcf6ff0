// The type library's description of an interface, on which the standard IDispatch members rest.
#pragma once

#include "automation/interfaces.h"

namespace automation {

// The type information of a dual interface, with a reference for the caller, from a cache of the module.
// It is loaded from the registered library, or from the module itself where the library is not registered.
HRESULT TypeInformation(REFIID interfaceId, ITypeInfo** information) noexcept;

// Empties the cache; it fills again by itself.
void ReleaseTypeInformation() noexcept;

// The four standard members for an interface and an object that implements it. Each runs in the activation
// context that the module was loaded in.
HRESULT DispatchTypeInfo(REFIID interfaceId, UINT index, ITypeInfo** information) noexcept;
HRESULT DispatchIdsOfNames(REFIID interfaceId, LPOLESTR* names, UINT count, DISPID* ids) noexcept;
HRESULT DispatchInvoke(REFIID interfaceId, void* object, DISPID id, WORD flags, DISPPARAMS* parameters,
                       VARIANT* result, EXCEPINFO* exception, UINT* badArgument) noexcept;

} // namespace automation
