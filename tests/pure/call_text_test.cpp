#include "explain/call_text.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using explain::ArgumentText;
using explain::Call;
using explain::CallText;
using explain::Flags;
using explain::Language;

struct Texts {
    const char* vbScript;
    const char* jScript;
    const char* powerShell;
    const char* python;
    const char* cSharp;
};

template <class Write>
void ExpectTexts(const Texts& expected, Write&& write) {
    EXPECT_EQ(write(Language::VBScript), expected.vbScript);
    EXPECT_EQ(write(Language::JScript), expected.jScript);
    EXPECT_EQ(write(Language::PowerShell), expected.powerShell);
    EXPECT_EQ(write(Language::Python), expected.python);
    EXPECT_EQ(write(Language::CSharp), expected.cSharp);
}

void ExpectArgument(const explain::Argument& argument, const Texts& expected) {
    ExpectTexts(expected, [&](Language language) { return ArgumentText(argument, language); });
}

TEST(ArgumentText, QuotesWhatTheLanguageTakesForItsOwn) {
    ExpectArgument(std::string(), {R"("")", R"("")", "''", "''", R"("")"});
    ExpectArgument(std::string(R"(a "b" 'c' \d $e `f` %g)"),
                   {R"("a ""b"" 'c' \d $e `f` %g")", R"("a \"b\" 'c' \\d $e `f` %g")",
                    R"('a "b" ''c'' \d $e `f` %g')", R"('a "b" \'c\' \\d $e `f` %g')",
                    R"("a \"b\" 'c' \\d $e `f` %g")"});
}

TEST(ArgumentText, HasNothingBeyondAsciiInIt) {
    // Control characters first, in the middle and last; one with a digit behind it.
    ExpectArgument(std::string("\t1\r\n2\x7F"),
                   {R"(ChrW(9) & "1" & ChrW(13) & ChrW(10) & "2" & ChrW(127))",
                    R"("\u00091\u000D\u000A2\u007F")",
                    R"~("$([char]0x9)1$([char]0xD)$([char]0xA)2$([char]0x7F)")~",
                    R"('\u00091\u000D\u000A2\u007F')", R"("\u00091\u000D\u000A2\u007F")"});
    // An umlaut, a Hebrew letter with the mark that turns the writing, a quote that PowerShell takes for one.
    ExpectArgument(std::string("\xC3\x84\xE2\x80\x8F\xD7\x90\xE2\x80\x99 \"$`"),
                   {R"(ChrW(196) & ChrW(8207) & ChrW(1488) & ChrW(8217) & " ""$`")",
                    R"("\u00C4\u200F\u05D0\u2019 \"$`")",
                    R"("$([char]0xC4)$([char]0x200F)$([char]0x5D0)$([char]0x2019) `"`$``")",
                    R"('\u00C4\u200F\u05D0\u2019 "$`')", R"("\u00C4\u200F\u05D0\u2019 \"$`")"});
    ExpectArgument(std::string("a\xF0\x9F\x94\xA9"),
                   {R"("a" & ChrW(55357) & ChrW(56617))", R"("a\uD83D\uDD29")",
                    R"~("a$([char]0xD83D)$([char]0xDD29)")~", R"('a\U0001F529')", R"("a\uD83D\uDD29")"});
}

TEST(ArgumentText, BytesThatAreNoCharacterAreReplaced) {
    for (const char* text : {"\xC3", "\x80", "\xFF", "\xC0"}) {
        EXPECT_EQ(ArgumentText(std::string(text), Language::JScript), R"("\uFFFD")") << text;
    }
    EXPECT_EQ(ArgumentText(std::string("\xED\xA0\x80"), Language::JScript), R"("\uFFFD\uFFFD\uFFFD")")
        << "half of a pair";
    EXPECT_EQ(ArgumentText(std::string("\xC3x"), Language::JScript), R"("\uFFFDx")");
}

TEST(ArgumentText, FlagsAreThe32BitsInEveryLanguage) {
    ExpectArgument(Flags{0x40}, {"&H40", "0x40", "0x40", "0x40", "0x40"});
    ExpectArgument(Flags{0x7FFF}, {"&H7FFF", "0x7FFF", "0x7FFF", "0x7FFF", "0x7FFF"});
    ExpectArgument(Flags{0x8040}, {"&H8040&", "0x8040", "0x8040", "0x8040", "0x8040"});
    ExpectArgument(Flags{0x200C0}, {"&H200C0&", "0x200C0", "0x200C0", "0x200C0", "0x200C0"});
    ExpectArgument(Flags{0x80000040}, {"&H80000040&", "(0x80000040 | 0)", "0x80000040",
                                       "0x80000040 - 0x100000000", "unchecked((int)0x80000040)"});
    ExpectArgument(std::int64_t{-1}, {"-1", "-1", "-1", "-1", "-1"});
}

TEST(CallText, MembersWithoutArgumentsAreCalledAsTheLanguageDoes) {
    const Call call = {{"MainWindow", {"cad"}},
                       {"ActiveDialog", {}},
                       {"ListBox", {std::int64_t{0}, Flags{0x40}}},
                       {"ItemsCount", {}}};
    ExpectTexts({R"(gh.MainWindow("cad").ActiveDialog.ListBox(0, &H40).ItemsCount)",
                 R"(gh.MainWindow("cad").ActiveDialog().ListBox(0, 0x40).ItemsCount)",
                 R"($gh.MainWindow('cad').ActiveDialog().ListBox(0, 0x40).ItemsCount)",
                 R"(gh.MainWindow('cad').ActiveDialog().ListBox(0, 0x40).ItemsCount)",
                 R"(gh.MainWindow("cad").ActiveDialog().ListBox(0, 0x40).ItemsCount)"},
                [&](Language language) { return CallText(call, language); });
    EXPECT_EQ(CallText({{"MainMenu", {}}}, Language::PowerShell, "frame"), "$frame.MainMenu()");
}

TEST(LanguageNames, AreReadAsTheyAreWritten) {
    for (const Language language : explain::kLanguages) {
        EXPECT_EQ(explain::LanguageOf(explain::LanguageName(language)), language);
    }
    EXPECT_EQ(explain::LanguageOf("vbscript"), Language::VBScript);
    EXPECT_EQ(explain::LanguageOf("CSHARP"), Language::CSharp);
    EXPECT_EQ(explain::LanguageOf("Basic"), std::nullopt);
    EXPECT_EQ(explain::LanguageOf(""), std::nullopt);
}

} // namespace
