// Input: a text, then bytes that choose the code page, the limit and the wanted text.
#include "engine/search_text.h"

#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cstring>
#include <iterator>
#include <string>
#include <vector>

#include "fuzz/check.h"

namespace {

using hostlink::CodePage;

constexpr CodePage kUtf8{true, nullptr};
constexpr CodePage kSingleByte{false, [](unsigned char) noexcept { return false; }};
constexpr CodePage kJapanese{false, [](unsigned char byte) noexcept {
                                 return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
                             }};
constexpr CodePage kChinese{false, [](unsigned char byte) noexcept { return byte >= 0x81 && byte <= 0xFE; }};

// Each byte becomes a character of one to four bytes.
std::string MadeUtf8(std::string_view bytes) {
    constexpr std::string_view kCharacters[] = {"a", "\xC3\xA4", "\xE2\x82\xAC", "\xF0\x9F\x94\xA9"};
    std::string text;
    for (const char byte : bytes)
        text += kCharacters[static_cast<unsigned char>(byte) % std::size(kCharacters)];
    return text;
}

std::size_t CharacterSize(unsigned char first, const CodePage& codePage) {
    if (!codePage.isUtf8)
        return codePage.isLeadByte(first) ? 2 : 1;
    return first < 0x80 ? 1 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
}

// Character by character from the beginning, for a text of whole characters that is too long.
std::size_t LastBorder(std::string_view text, std::size_t limit, const CodePage& codePage) {
    std::size_t border = 0;
    for (std::size_t next = 0; next <= limit;
         next += CharacterSize(static_cast<unsigned char>(text[next]), codePage))
        border = next;
    return border;
}

bool Occurs(const std::string& wanted, const std::string& text) {
    for (std::size_t begin = 0; begin + wanted.size() <= text.size(); ++begin)
        if (text.compare(begin, wanted.size(), wanted) == 0)
            return true;
    return false;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    const auto codePage = input.PickValueInArray<CodePage>({kUtf8, kSingleByte, kJapanese, kChinese});
    const auto limit = input.ConsumeIntegral<std::uint8_t>();
    const std::string wanted = input.ConsumeRandomLengthString(20);
    const bool isMadeUtf8 = codePage.isUtf8 && input.ConsumeBool();
    std::string text = input.ConsumeRemainingBytesAsString();
    if (isMadeUtf8)
        text = MadeUtf8(text);

    const std::size_t length = hostlink::CutLength(text, limit, codePage);
    Check(length <= limit && length <= text.size(), "a cut text is not too long");
    Check(length == text.size() || text.size() > limit, "a text that fits is not cut");
    Check(length + 3 >= std::min<std::size_t>(limit, text.size()), "no more than a character is lost");
    if (text.size() > limit && (!codePage.isUtf8 || isMadeUtf8))
        Check(length == LastBorder(text, limit, codePage), "a text is cut between two characters");

    char field[engine::kSearchTextSize];
    std::memset(field, 'x', sizeof field);
    engine::SetSearchText(field, text, codePage);
    const void* end = std::memchr(field, '\0', sizeof field);
    Check(end != nullptr, "a search text is terminated");
    Check(text.starts_with(field), "a search text is the beginning of its text");
    const std::string whole = text.c_str();
    Check(whole.size() < 256 ? whole == field : std::strlen(field) >= 256,
          "nothing is left out without need");

    const std::string sought = wanted.c_str();
    Check(engine::HasWantedText(field, sought.c_str(), true) == Occurs(sought, field), "containment");
    Check(engine::HasWantedText(field, sought.c_str(), false) == (sought == field), "equality");
    return 0;
}
