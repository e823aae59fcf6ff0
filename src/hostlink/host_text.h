// Texts that come from the host's memory or go into buffers of fixed size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

#include "hostlink/text_cut.h"

namespace hostlink {

// Copies the NUL-terminated text at `address` of this process into `buffer`, cut to its size and always
// terminated. The text is read only as far as memory is readable.
void CopyHostText(std::uint64_t address, std::span<char> buffer) noexcept;

// In the system code page; characters that it lacks become its default character.
std::string ToAnsi(std::wstring_view text);

// That of the ANSI functions and of all texts here.
CodePage SystemCodePage() noexcept;
std::size_t CutLength(std::string_view text, std::size_t limit) noexcept;

} // namespace hostlink
