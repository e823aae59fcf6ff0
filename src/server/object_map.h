// The classes of the server.
#pragma once

#include <windows.h>

#include <atomic>
#include <optional>
#include <span>

#include "automation/classes.h"
#include "server/class_factory.h"

namespace server {

struct ObjectMapEntry {
    const CLSID* classId;
    automation::CreateFunction* create;
    UINT registrationScript; // resource id

    // Made on the first request (CGhosthandModule::GetClassObject); the pointer is set once it stands.
    std::optional<ClassFactory> factoryStorage = {};
    std::atomic<ClassFactory*> factory = nullptr;
};

// In the order of the type library.
std::span<ObjectMapEntry> ObjectMap() noexcept;

} // namespace server
