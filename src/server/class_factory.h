// The class factory of one class.
#pragma once

#include <windows.h>

#include <unknwn.h>

#include <atomic>

#include "automation/classes.h"

namespace server {

// Belongs to the object map for as long as the module is loaded; its reference count destroys nothing.
// Every reference of a client, and every lock of LockServer, keeps the module loaded; a factory that
// nobody refers to does not.
class ClassFactory final : public IClassFactory {
public:
    explicit ClassFactory(automation::CreateFunction* create) noexcept : m_create(create) {}
    ClassFactory(const ClassFactory&) = delete;
    ClassFactory& operator=(const ClassFactory&) = delete;

    STDMETHODIMP QueryInterface(REFIID iid, void** object) noexcept override;
    STDMETHODIMP_(ULONG) AddRef() noexcept override;
    STDMETHODIMP_(ULONG) Release() noexcept override;
    STDMETHODIMP CreateInstance(IUnknown* outer, REFIID iid, void** object) noexcept override;
    STDMETHODIMP LockServer(BOOL lock) noexcept override;

private:
    automation::CreateFunction* m_create;
    std::atomic<ULONG> m_references = 0;
};

} // namespace server
