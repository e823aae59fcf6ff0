// Making automation objects.
#pragma once

#include <new>
#include <type_traits>

#include "automation/automation_object.h"

namespace automation {

// A new object with a reference count of 0, which holds a lock on the module: the caller's request for an
// interface gives the first reference.
template <class Object>
HRESULT CreateObject(IUnknown* outer, Object** object) noexcept {
    static_assert(std::is_nothrow_constructible_v<Object, IUnknown*>);
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = new (std::nothrow) Object(outer);
    return *object == nullptr ? E_OUTOFMEMORY : S_OK;
}

// Requests an interface of a new object, which goes with a failing request.
template <class Object>
HRESULT RequestInterface(Object& created, REFIID iid, void** object) noexcept {
    created.Inner().AddRef();
    const HRESULT result = created.Inner().QueryInterface(iid, object);
    created.Inner().Release();
    return result;
}

// What a class's CreateFunction does.
template <class Object>
HRESULT CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept {
    if (object == nullptr) {
        return E_POINTER;
    }
    *object = nullptr;
    if (outer != nullptr && iid != IID_IUnknown) {
        return CLASS_E_NOAGGREGATION;
    }
    Object* created = nullptr;
    const HRESULT result = CreateObject(outer, &created);
    return FAILED(result) ? result : RequestInterface(*created, iid, object);
}

// The wrap step: hands an engine object to a new automation object and that one to the caller. An engine
// object that is missing or not valid was not found: S_FALSE and a null object, no error.
template <class Object, class Interface>
HRESULT WrapInto(std::unique_ptr<typename Object::EngineObject> engine, Interface** object) {
    *object = nullptr;
    if (engine == nullptr || !engine->IsValid()) {
        return S_FALSE;
    }
    Object* created = nullptr;
    if (const HRESULT result = CreateObject<Object>(nullptr, &created); FAILED(result)) {
        return result;
    }
    created->Adopt(std::move(engine));
    return RequestInterface(*created, __uuidof(Interface), reinterpret_cast<void**>(object));
}

} // namespace automation
