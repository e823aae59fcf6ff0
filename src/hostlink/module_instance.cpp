#include "hostlink/module_instance.h"

namespace hostlink {

namespace {
HINSTANCE moduleInstance = nullptr;
}

void SetModuleInstance(HINSTANCE instance) noexcept {
    moduleInstance = instance;
}

HINSTANCE ModuleInstance() noexcept {
    return moduleInstance;
}

} // namespace hostlink
