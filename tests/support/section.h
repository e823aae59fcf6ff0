// A section of a loaded module, as its headers tell where it lies.
#pragma once

#include <windows.h>

#include <cstddef>
#include <cstring>
#include <span>
#include <stdexcept>
#include <string>

namespace support {

// Throws std::runtime_error when the module has no section of that name (at most 8 bytes).
inline std::span<std::byte> SectionOf(HMODULE module, const char* name) {
    auto* const base = reinterpret_cast<std::byte*>(module);
    const auto& dos = *reinterpret_cast<const IMAGE_DOS_HEADER*>(base);
    const auto* headers = reinterpret_cast<const IMAGE_NT_HEADERS*>(base + dos.e_lfanew);
    const auto* section = IMAGE_FIRST_SECTION(headers);
    for (int index = 0; index < headers->FileHeader.NumberOfSections; ++index, ++section)
        if (std::strncmp(reinterpret_cast<const char*>(section->Name), name, sizeof section->Name) == 0)
            return {base + section->VirtualAddress, section->Misc.VirtualSize};
    throw std::runtime_error(std::string("the module has no section ") + name);
}

} // namespace support
