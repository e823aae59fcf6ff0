#include "engine/search_text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using hostlink::CodePage;
using hostlink::CutLength;

const CodePage kUtf8{.isUtf8 = true};
const CodePage kJapanese{.isLeadByte = [](unsigned char byte) noexcept {
    return (byte >= 0x81 && byte <= 0x9F) || (byte >= 0xE0 && byte <= 0xFC);
}};

TEST(CutLength, LeavesTextsThatFit) {
    for (const CodePage& codePage : {kUtf8, kJapanese}) {
        EXPECT_EQ(CutLength("", 0, codePage), 0u);
        EXPECT_EQ(CutLength("ab\x81", 3, codePage), 3u);
    }
}

TEST(CutLength, NeverPartsALeadByteFromItsTrailByte) {
    // "ab" and two characters whose trail bytes look like a lead byte and like a backslash.
    EXPECT_EQ(CutLength("ab\x83\x81\x83\x5C|", 4, kJapanese), 4u);
    EXPECT_EQ(CutLength("ab\x83\x81\x83\x5C|", 5, kJapanese), 4u);
    EXPECT_EQ(CutLength("ab\x83\x81\x83\x5C|", 6, kJapanese), 6u);
    EXPECT_EQ(CutLength("\x83\x81", 1, kJapanese), 0u);
}

TEST(CutLength, NeverPartsAUtf8Character) {
    const std::string text = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\xA9";
    for (const auto& [limit, length] :
         {std::pair(0u, 0u), {1, 1}, {2, 1}, {3, 3}, {4, 3}, {5, 3}, {6, 6}, {9, 6}})
        EXPECT_EQ(CutLength(text, limit, kUtf8), length) << limit;
}

TEST(CutLength, TrailBytesWithoutACharacterAreNotLostAltogether) {
    EXPECT_EQ(CutLength(std::string(300, '\x80'), 259, kUtf8), 259u);
    EXPECT_EQ(CutLength("abcd" + std::string(300, '\xBF'), 259, kUtf8), 259u);
}

TEST(SearchText, IsCutToItsFieldAndTerminated) {
    char field[engine::kSearchTextSize];
    engine::SetSearchText(field, std::string(258, 'x') + "\x83\x81", kJapanese);
    EXPECT_EQ(std::string(field), std::string(258, 'x'));
    engine::SetSearchText(field, {}, kJapanese);
    EXPECT_STREQ(field, "");
}

TEST(SearchText, IsWantedWholeOrByContainment) {
    EXPECT_TRUE(engine::HasWantedText("Part one", "t o", true));
    EXPECT_TRUE(engine::HasWantedText("Part one", "", true));
    EXPECT_FALSE(engine::HasWantedText("Part one", "part", true));
    EXPECT_TRUE(engine::HasWantedText("Part one", "Part one", false));
    EXPECT_FALSE(engine::HasWantedText("Part one", "Part", false));
}

} // namespace
