#include "server/CGhosthandModule.h"

#include <mutex>

#include "automation/module_lock.h"
#include "automation/type_info.h"
#include "engine/thread_idle.h"
#include "hostlink/module_instance.h"
#include "server/thread_locale.h"
#include "trace/trace.h"

namespace {

constexpr UINT kApplicationScript = 101;
constexpr wchar_t kApplicationId[] = L"{3E224201-165C-4917-A819-7D4899B3D1D2}";

} // namespace

void CGhosthandModule::Initialize(HINSTANCE instance, std::span<server::ObjectMapEntry> objectMap) noexcept {
    m_instance = instance;
    m_objectMap = objectMap;
    m_factoryCreation.emplace();
}

HRESULT CGhosthandModule::GetClassObject(const CLSID& classId, REFIID iid, void** object) noexcept {
    if (object == nullptr)
        return E_POINTER;
    *object = nullptr;
    if (!m_factoryCreation)
        return E_UNEXPECTED;
    trace::StartIfAsked(); // only a script comes here, no driven program
    for (server::ObjectMapEntry& entry : m_objectMap)
        if (*entry.classId == classId)
            return Factory(entry).QueryInterface(iid, object);
    return CLASS_E_CLASSNOTAVAILABLE;
}

server::ClassFactory& CGhosthandModule::Factory(server::ObjectMapEntry& entry) noexcept {
    if (server::ClassFactory* const factory = entry.factory.load(std::memory_order_acquire))
        return *factory;
    const std::lock_guard creation(*m_factoryCreation);
    if (!entry.factoryStorage)
        entry.factory.store(&entry.factoryStorage.emplace(entry.create), std::memory_order_release);
    return *entry.factoryStorage;
}

HRESULT CGhosthandModule::CanUnloadNow() const noexcept {
    if (automation::ModuleLockCount() != 0)
        return S_FALSE;
    automation::ReleaseTypeInformation();
    engine::ReleasePerformanceData();
    return S_OK;
}

HRESULT CGhosthandModule::RegisterServer() const noexcept {
    return WalkRegistration(server::RegistrationMode::Register);
}

HRESULT CGhosthandModule::UnregisterServer() const noexcept {
    return WalkRegistration(server::RegistrationMode::Unregister);
}

HRESULT CGhosthandModule::WalkRegistration(server::RegistrationMode mode) const noexcept {
    const server::ThreadLocale systemLocale(LOCALE_SYSTEM_DEFAULT);
    try {
        const server::Replacements replacements = {{L"MODULE", hostlink::ModulePath(m_instance)},
                                                   {L"APPID", kApplicationId}};
        if (const HRESULT result =
                server::RunRegistrationScript(m_instance, kApplicationScript, replacements, mode);
            FAILED(result))
            return result;
        // No class has implemented categories: the scripts are all that there is to register of it.
        for (const server::ObjectMapEntry& entry : m_objectMap)
            if (const HRESULT result =
                    server::RunRegistrationScript(m_instance, entry.registrationScript, replacements, mode);
                FAILED(result))
                return result;
        return server::RegisterTypeLibrary(m_instance, mode);
    } catch (...) {
        return server::FailureResult();
    }
}
