#include "hostlink/text_cut.h"

namespace hostlink {

namespace {

bool IsUtf8TrailByte(char byte) noexcept {
    return (static_cast<unsigned char>(byte) & 0xC0) == 0x80;
}

// Both take a text that is longer than the limit.
std::size_t CutUtf8(std::string_view text, std::size_t limit) noexcept {
    // A character has no more trail bytes: a longer run of them is damage, and all of it would be lost.
    constexpr std::size_t kMostTrailBytes = 3;
    std::size_t length = limit;
    while (length > 0 && limit - length < kMostTrailBytes && IsUtf8TrailByte(text[length])) {
        --length;
    }
    return IsUtf8TrailByte(text[length]) ? limit : length;
}

std::size_t CutDoubleByte(std::string_view text, std::size_t limit,
                          bool (*isLeadByte)(unsigned char byte) noexcept) noexcept {
    std::size_t length = 0;
    while (length < limit) {
        const std::size_t step = isLeadByte(static_cast<unsigned char>(text[length])) ? 2 : 1;
        if (length + step > limit) {
            break;
        }
        length += step;
    }
    return length;
}

} // namespace

std::size_t CutLength(std::string_view text, std::size_t limit, const CodePage& codePage) noexcept {
    if (text.size() <= limit) {
        return text.size();
    }
    return codePage.isUtf8 ? CutUtf8(text, limit) : CutDoubleByte(text, limit, codePage.isLeadByte);
}

} // namespace hostlink
