#include "pure/host_contract_cxx11.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_literals;
using cxx11::CodePage;
using cxx11::Read;
using cxx11::Written;

TEST(HostContract, WritesNoMoreThanTheCapacity) {
    EXPECT_EQ(Written("......", 6, "abc", CodePage::DoubleByte), "abc\0.."s);
    EXPECT_EQ(Written("......", 4, "abc", CodePage::DoubleByte), "abc\0.."s);
    EXPECT_EQ(Written("......", 3, "abc", CodePage::DoubleByte), "ab\0..."s);
    EXPECT_EQ(Written("......", 1, "abc", CodePage::DoubleByte), "\0....."s);
    EXPECT_EQ(Written("......", 0, "abc", CodePage::DoubleByte), "......"s);
    EXPECT_EQ(cxx11::WrittenAndReadWithoutMemory(), "");
}

TEST(HostContract, CutsNoCharacterOfTwoBytes) {
    // "\x83\x5C" is one character that ends in a backslash, "\x83\x83" one that ends in a lead byte.
    const std::string text = "a\x83\x5C\x83\x83";
    EXPECT_EQ(Written("......", 6, text, CodePage::DoubleByte), text + '\0');
    EXPECT_EQ(Written("......", 5, text, CodePage::DoubleByte), "a\x83\x5C\0.."s);
    EXPECT_EQ(Written("......", 4, text, CodePage::DoubleByte), "a\x83\x5C\0.."s);
    EXPECT_EQ(Written("......", 3, text, CodePage::DoubleByte), "a\0...."s);
    EXPECT_EQ(Written("......", 2, "\x83\x5C", CodePage::DoubleByte), "\0....."s);
}

TEST(HostContract, CutsNoCharacterOfUtf8) {
    // Of two, three and four bytes.
    const std::string text = "\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80";
    const std::size_t lengths[] = {0, 0, 2, 2, 2, 5, 5, 5, 5, 9};
    for (unsigned room = 0; room < 10; ++room) {
        const std::string memory = Written(std::string(12, '.'), room + 1, text, CodePage::Utf8);
        EXPECT_EQ(memory.substr(0, lengths[room] + 1), text.substr(0, lengths[room]) + '\0') << room;
        EXPECT_EQ(memory.substr(room + 1), std::string(12 - room - 1, '.')) << room;
    }
}

TEST(HostContract, ReadsNoMoreThanTheCapacity) {
    EXPECT_EQ(Read("abc\0def"s, 7), "abc");
    EXPECT_EQ(Read("abcdef", 3), "abc"); // without an end
    EXPECT_EQ(Read("abc", 0), "");
}

} // namespace
