// Cutting ANSI texts between two characters.
#pragma once

#include <cstddef>
#include <string_view>

namespace hostlink {

// How bytes make characters.
struct CodePage {
    bool isUtf8 = false;
    bool (*isLeadByte)(unsigned char byte) noexcept = nullptr; // of two-byte characters; not asked for UTF-8
};

// The length in bytes to which a text must be cut to take no more than `limit` bytes without parting the
// bytes of a character. Bytes that are no characters of the code page cost at most three more.
std::size_t CutLength(std::string_view text, std::size_t limit, const CodePage& codePage) noexcept;

} // namespace hostlink
