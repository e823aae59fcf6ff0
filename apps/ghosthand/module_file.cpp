#include "ghosthand/module_file.h"

#include <cstdint>

namespace apps {

namespace {

constexpr std::size_t kPlaceOfHeaderOffset = 0x3C;
constexpr std::uint32_t kModuleIsDll = 0x2000;

// A little-endian number of `count` bytes; 0 beyond the end.
std::uint32_t NumberAt(std::span<const std::byte> bytes, std::size_t offset, std::size_t count) noexcept {
    if (offset > bytes.size() || bytes.size() - offset < count) {
        return 0;
    }
    std::uint32_t number = 0;
    for (std::size_t index = count; index-- > 0;) {
        number = number << 8 | std::to_integer<std::uint32_t>(bytes[offset + index]);
    }
    return number;
}

} // namespace

ModuleKind KindOfModule(std::span<const std::byte> start) noexcept {
    const std::size_t header = NumberAt(start, kPlaceOfHeaderOffset, 4);
    if (NumberAt(start, 0, 2) != 0x5A4D /* MZ */ || NumberAt(start, header, 4) != 0x4550 /* PE */ ||
        (NumberAt(start, header + 22, 2) & kModuleIsDll) == 0) {
        return ModuleKind::NotAModule;
    }
    switch (NumberAt(start, header + 4, 2)) {
    case 0x8664:
        return ModuleKind::Bits64;
    case 0x014C:
        return ModuleKind::Bits32;
    default:
        return ModuleKind::OtherProcessor;
    }
}

} // namespace apps
