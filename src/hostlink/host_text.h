// Texts that come from the host's memory or go into buffers of fixed size.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace hostlink {

// Copies the NUL-terminated text at `address` of this process into `buffer`, cut to its size and always
// terminated. The text is read only as far as memory is readable.
void CopyHostText(std::uint64_t address, std::span<char> buffer) noexcept;

// In the system code page; characters that it lacks become its default character.
std::string ToAnsi(std::wstring_view text);

// The length in bytes to which an ANSI text must be cut to take no more than `limit` bytes without
// parting a lead byte from its trail byte.
std::size_t CutLength(std::string_view text, std::size_t limit) noexcept;

} // namespace hostlink
