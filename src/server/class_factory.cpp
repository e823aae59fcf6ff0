#include "server/class_factory.h"

#include "automation/module_lock.h"

namespace server {

STDMETHODIMP ClassFactory::QueryInterface(REFIID iid, void** object) noexcept {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    if (iid != IID_IUnknown && iid != IID_IClassFactory)
        return E_NOINTERFACE;
    *object = static_cast<IClassFactory*>(this);
    AddRef();
    return S_OK;
}

STDMETHODIMP_(ULONG) ClassFactory::AddRef() noexcept {
    automation::LockModule();
    return ++m_references;
}

STDMETHODIMP_(ULONG) ClassFactory::Release() noexcept {
    const ULONG references = --m_references;
    // The module may be unloaded from here on.
    automation::UnlockModule();
    return references;
}

STDMETHODIMP ClassFactory::CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept {
    return m_create(outer, iid, object);
}

STDMETHODIMP ClassFactory::LockServer(BOOL lock) noexcept {
    if (lock)
        automation::LockModule();
    else
        automation::UnlockModule();
    return S_OK;
}

} // namespace server
