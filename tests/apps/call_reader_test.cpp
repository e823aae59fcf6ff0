#include "ghinspect/call_reader.h"

#include <gtest/gtest.h>

#include <string>

namespace {

using explain::Call;
using explain::Flags;
using explain::Language;
using inspector::LooksLikeCall;
using inspector::ReadArguments;
using inspector::ReadCall;

// What the tools write is read back as it was, whatever is in it.
TEST(ReadCall, ReadsWhatIsWritten) {
    const Call call = {{"MainWindow", {std::string("a \"b\" 'c' \\d $e `f` %g, (h)")}},
                       {"ChildWindow",
                        {std::string("\t1\r\n\xC3\x84\xD7\x90\xF0\x9F\x94\xA9 \"$`"), std::string(),
                         std::int64_t{-7}, Flags{0x80000040}}},
                       {"TreeCtrl", {std::int64_t{1100}, Flags{0x8040}}},
                       {"MainMenu", {}}};
    for (const Language language : explain::kLanguages) {
        const std::string text = CallText(call, language);
        EXPECT_EQ(ReadCall(text, language), call) << text;
    }
}

TEST(ReadCall, ReadsWhatPeopleWrite) {
    const Call call = {{"MainWindow", {std::string("cad")}},
                       {"Edit", {std::int64_t{0}, Flags{0x20040}, std::int64_t{10}}}};
    for (const char* text : {"gh.MainWindow(\"cad\").Edit(0, 2 * &H10000 + &H40, 10)",
                             "Set edit = ghosthand.mainwindow( \"cad\" ) . Edit(0,&H20000 Or &H40, 10) "}) {
        auto read = ReadCall(text, Language::VBScript);
        ASSERT_TRUE(read) << text;
        read->front().member = "MainWindow";
        EXPECT_EQ(*read, call) << text;
    }
    EXPECT_EQ(ReadCall("e = gh.MainWindow('cad').Edit(0, 0x20000 | 0x40, 10);", Language::JScript), call);
}

TEST(ReadCall, RefusesWhatItDoesNotUnderstand) {
    for (const char* text : {"", "MainWindow(", "MainWindow(\"a", "MainWindow(\"a\"", "MainWindow(name)",
                             "MainWindow(\"a\").", "MainWindow(\"a\") + 1", "MainWindow(,)",
                             "MainWindow(99999999999999999999)", "MainWindow(ChrW(", "Edit(0)"}) {
        EXPECT_FALSE(ReadCall(text, Language::VBScript)) << text;
    }
    EXPECT_FALSE(ReadCall("MainWindow(" + std::string(100000, '('), Language::VBScript));
    EXPECT_FALSE(ReadCall("MainWindow(\"\\", Language::JScript));
    EXPECT_FALSE(ReadCall("MainWindow(\"\\u12", Language::JScript));
}

TEST(LooksLikeCall, TellsCallsFromWords) {
    EXPECT_TRUE(LooksLikeCall("gh.MainWindow(\"a\").Edit"));
    EXPECT_FALSE(LooksLikeCall("Main window (1)"));
    EXPECT_FALSE(LooksLikeCall("MainWindow"));
}

TEST(ReadArguments, HasTextsNumbersAndTruthValues) {
    EXPECT_EQ(ReadArguments("", Language::Python), std::vector<explain::Argument>{});
    const std::vector<explain::Argument> expected = {std::string("a, b"), std::int64_t{1}, std::int64_t{-1},
                                                     std::int64_t{0}, Flags{0x10}};
    EXPECT_EQ(ReadArguments(" \"a, b\",1 , True, False, &H10", Language::VBScript), expected);
    EXPECT_FALSE(ReadArguments("1,", Language::VBScript));
    EXPECT_FALSE(ReadArguments("a", Language::VBScript));
}

} // namespace
