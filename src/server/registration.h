// Self-registration: the registration scripts and the type library among the module's resources.
#pragma once

#include <windows.h>

#include "server/registration_script.h"

namespace server {

enum class RegistrationMode { Register, Unregister };

// Runs the script that the module holds as a resource of the type REGISTRY.
// ERROR_RESOURCE_NAME_NOT_FOUND and the like as an HRESULT where the script is missing,
// ERROR_INVALID_DATA where it is damaged, otherwise the first failure of the registry.
HRESULT RunRegistrationScript(HINSTANCE module, UINT script, const Replacements& replacements,
                              RegistrationMode mode) noexcept;

// Registers the type library that the module holds as the resource TYPELIB 1, or unregisters it as what
// it says of itself: its own version, locale and system kind.
HRESULT RegisterTypeLibrary(HINSTANCE module, RegistrationMode mode) noexcept;

// The result for the exception that is being handled.
HRESULT FailureResult() noexcept;

} // namespace server
