// The module as COM sees it: its classes and its registration.
#pragma once

#include <windows.h>

#include <optional>
#include <span>

#include "server/critical_section.h"
#include "server/object_map.h"
#include "server/registration.h"

class CGhosthandModule {
public:
    // Called once, when the module is loaded; before it there are no class objects. The object map must
    // outlive this object.
    void Initialize(HINSTANCE instance, std::span<server::ObjectMapEntry> objectMap) noexcept;

    // What the four entry points of the module do, which are described where COM documents them.
    // Both walks of the registration end with the first failure and return it.
    HRESULT GetClassObject(const CLSID& classId, REFIID iid, void** object) noexcept;
    HRESULT CanUnloadNow() const noexcept;
    HRESULT RegisterServer() const noexcept;
    HRESULT UnregisterServer() const noexcept;

private:
    server::ClassFactory& Factory(server::ObjectMapEntry& entry) noexcept;
    HRESULT WalkRegistration(server::RegistrationMode mode) const noexcept;

    HINSTANCE m_instance = nullptr;
    std::span<server::ObjectMapEntry> m_objectMap;
    std::optional<server::CriticalSection> m_factoryCreation; // empty until initialised
};
