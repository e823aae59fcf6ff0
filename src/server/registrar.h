// Carries out registration scripts on the registry.
#pragma once

#include <windows.h>

#include <span>

#include "server/registration_script.h"

namespace server {

// Makes the keys and values in the order of the script. The first failure ends it and is returned; what
// was made before it stays.
HRESULT RegisterKeys(std::span<const ScriptRoot> roots) noexcept;

// Takes back what RegisterKeys made; what is missing already is no failure.
// - A NoRemove key stays, with its default value; what the script names inside of it goes.
// - A ForceRemove key goes with everything inside of it, whoever made that.
// - Any other key loses what the script names inside of it, and then goes too, unless it has keys that
//   the script does not name: then it stays without the script's default value.
HRESULT UnregisterKeys(std::span<const ScriptRoot> roots) noexcept;

} // namespace server
