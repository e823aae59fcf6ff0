// The instance handle of the module that holds the hook procedures.
#pragma once

#include <string>

#include <windows.h>

namespace hostlink {

// Called once, when the module is loaded. Hooks are installed with this handle.
void SetModuleInstance(HINSTANCE instance) noexcept;
HINSTANCE ModuleInstance() noexcept;

// Keeps the module loaded until the end of the process: COM may unload a module that has no objects left,
// but procedures of hooks that outlive a call are in it. False if the system refused.
bool PinModule() noexcept;

// The full path of a loaded module, of any length. Throws std::system_error if the system does not know it.
std::wstring ModulePath(HINSTANCE module);

} // namespace hostlink
