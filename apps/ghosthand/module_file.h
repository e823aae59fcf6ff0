// What a file that is to be registered is, told by its first bytes.
#pragma once

#include <cstddef>
#include <span>

namespace apps {

enum class ModuleKind { Missing, NotAModule, Bits32, Bits64, OtherProcessor };

// The header of a module lies within its first bytes; this many are always enough for a file that loads.
inline constexpr std::size_t kModuleHeaderBytes = 4096;

// Never Missing: that is for the caller to find out. Bits64: x86-64, which is what the server is built for.
ModuleKind KindOfModule(std::span<const std::byte> start) noexcept;

} // namespace apps
