// The instance handle of the module that holds the hook procedures.
#pragma once

#include <windows.h>

namespace hostlink {

// Called once, when the module is loaded. Hooks are installed with this handle.
void SetModuleInstance(HINSTANCE instance) noexcept;
HINSTANCE ModuleInstance() noexcept;

} // namespace hostlink
