#include "engine/path_tokens.h"

#include "engine/prefix_match.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using namespace engine;
using Tokens = std::vector<std::string>;

TEST(PathTokens, RunsAndEdgesOfSeparatorsCountForNothing) {
    for (const char* path : {"3", "3/", "/3", "3.-:", ".-:|/\\3\\"})
        EXPECT_EQ(PathTokens(path, kTreeNumberPath), Tokens{"3"}) << path;
    EXPECT_EQ(PathTokens("2/3.-5|x\\:7", kTreeNumberPath), (Tokens{"2", "3", "5", "x", "7"}));
    for (const char* path : {"", "|", ".-:|/\\"})
        EXPECT_EQ(PathTokens(path, kTreeNumberPath), Tokens{}) << path;
}

TEST(PathTokens, EachKindOfPathHasItsOwnSeparators) {
    constexpr std::string_view path = "a.b-c:d|e/f\\g";
    EXPECT_EQ(PathTokens(path, kTreeNumberPath), (Tokens{"a", "b", "c", "d", "e", "f", "g"}));
    EXPECT_EQ(PathTokens(path, kTreeNamePath), (Tokens{"a.b-c:d", "e/f\\g"}));
    EXPECT_EQ(PathTokens(path, kOptionTreePath), (Tokens{"a.b-c:d", "e", "f", "g"}));
    EXPECT_EQ(PathTokens(path, kMenuNumberPath), (Tokens{"a", "b", "c", "d|e", "f", "g"}));
}

TEST(PathTokens, APathIsTakenWholeOrNotAtAll) {
    const std::pair<PathKind, std::size_t> kinds[] = {
        {kTreeNumberPath, 32767}, {kTreeNamePath, 32767}, {kOptionTreePath, 32767}, {kMenuNumberPath, 259}};
    for (const auto& [kind, longest] : kinds) {
        const std::string last(longest - 2, 'b');
        const std::string path = std::string{'a', kind.separators.front()} + last;
        EXPECT_EQ(PathTokens(path, kind), (Tokens{"a", last})) << kind.separators;
        EXPECT_EQ(PathTokens(path + "b", kind), std::nullopt) << kind.separators;
        EXPECT_EQ(PathTokens(std::string(longest + 1, kind.separators.front()), kind), std::nullopt);
    }
}

TEST(PathTokens, NumbersAreReadWithTolerance) {
    constexpr int kGreatest = std::numeric_limits<int>::max();
    constexpr int kLeast = std::numeric_limits<int>::min();
    const std::pair<const char*, int> cases[] = {
        {"3", 3},
        {"012", 12},
        {" \t7", 7},
        {"+4", 4},
        {"-2", -2},
        {"5abc", 5},
        {"0x10", 0},
        {"x", 0},
        {"", 0},
        {"  ", 0},
        {"+", 0},
        {"+-4", 0},
        {"--4", 0},
        {"+ 4", 0},
        {"2147483647", kGreatest},
        {"2147483648", kGreatest},
        {"99999999999999999999x", kGreatest},
        {"-2147483648", kLeast},
        {" -99999999999999999999", kLeast},
    };
    for (const auto& [token, number] : cases)
        EXPECT_EQ(PathNumber(token), number) << '"' << token << '"';
}

TEST(PrefixMatch, TextBeginsWithTheName) {
    EXPECT_TRUE(StartsWith("Abc", "Ab"));
    EXPECT_TRUE(StartsWith("", ""));
    EXPECT_FALSE(StartsWith("Abc", "ab"));
    EXPECT_FALSE(StartsWith("Ab", "Abc"));
    EXPECT_FALSE(StartsWith("x Ab", "Ab"));
}

} // namespace
