// The ranking of near misses, with what stands in real dialogs.
#include "explain/miss_ranking.h"

#include <gmock/gmock.h>

namespace {

using namespace explain;
using testing::ElementsAre;
using testing::IsEmpty;

TextDifference DifferenceOf(std::string_view wanted, std::string_view actual,
                            TextTest test = TextTest::Contains) {
    return Compare(wanted, actual, test).difference;
}

TEST(CompareTexts, PassesWhatTheSearchPasses) {
    EXPECT_EQ(DifferenceOf("Open", "Open File"), TextDifference::None);
    EXPECT_EQ(DifferenceOf("Open", "Open File", TextTest::Equal), TextDifference::Other);
    EXPECT_EQ(DifferenceOf("Open", "Open File", TextTest::BeginsWith), TextDifference::None);
    EXPECT_EQ(DifferenceOf("File", "Open File", TextTest::BeginsWith), TextDifference::Other);
    EXPECT_EQ(DifferenceOf("", ""), TextDifference::None);
}

TEST(CompareTexts, TellsHowTheyDiffer) {
    EXPECT_EQ(DifferenceOf("Open file", "Open File - Editor"), TextDifference::Case);
    EXPECT_EQ(DifferenceOf("\xC3\x96"
                           "FFNEN",
                           "Datei \xC3\xB6"
                           "ffnen"),
              TextDifference::Case);                                                       // Ö, ö
    EXPECT_EQ(DifferenceOf("\xD0\x9E\xD0\x9A", "\xD0\xBE\xD0\xBA"), TextDifference::Case); // ОК, ок
    EXPECT_EQ(DifferenceOf("Name", "Na&me"), TextDifference::Marks);
    EXPECT_EQ(DifferenceOf("Save As...", "Save &As"), TextDifference::Marks);
    EXPECT_EQ(DifferenceOf("Undo", "&Undo\tCtrl+Z", TextTest::BeginsWith), TextDifference::Marks);
    EXPECT_EQ(DifferenceOf("Fnd", "&Find Next"), TextDifference::Spelling);
    EXPECT_EQ(DifferenceOf("Stetings", "Settings"), TextDifference::Spelling); // two letters swapped
    EXPECT_EQ(DifferenceOf("L\xC3\xB6schen", "L\xC3\xA4schen"), TextDifference::Spelling);
    EXPECT_EQ(DifferenceOf("OK", "Cancel"), TextDifference::Other);
    EXPECT_EQ(DifferenceOf("OK", ""), TextDifference::Other);
    EXPECT_EQ(DifferenceOf("&", "OK"), TextDifference::Other);
}

TEST(CompareTexts, TakesAnyBytes) {
    const std::string cutOff = "\xE2\x82";
    EXPECT_NE(DifferenceOf(cutOff, "\xC3"), TextDifference::None);
    EXPECT_EQ(DifferenceOf(cutOff, cutOff), TextDifference::None);
    const std::string endless(100000, 'x');
    EXPECT_EQ(DifferenceOf("y", endless), TextDifference::Other);
}

struct Row {
    int weight;
    const char* name;
};

std::vector<std::string> NamesOf(const std::vector<Row>& rows, std::size_t most) {
    NearestList nearest(most);
    for (std::size_t index = 0; index < rows.size(); ++index) {
        nearest.Add(rows[index].weight, index);
    }
    std::vector<std::string> names;
    for (const std::size_t index : nearest.Nearest()) {
        names.emplace_back(rows[index].name);
    }
    return names;
}

int CaptionWeight(std::string_view wanted, std::string_view actual) {
    return Weight(Rejection::Caption, Compare(wanted, actual, TextTest::Contains).distance);
}
int ClassWeight(std::string_view wanted, std::string_view actual) {
    return Weight(Rejection::Class, Compare(wanted, actual, TextTest::Contains).distance);
}

// Button "Appli": what a tester means is the button, though other windows have a caption that passes.
TEST(MissRanking, PutsTheFewestAndLightestRejectionsFirst) {
    const std::vector<Row> dialog = {
        {CaptionWeight("Apply", "Cancel"), "another button"},
        {ClassWeight("Button", "Static"), "label of that caption"},
        {Weight(Rejection::Disabled) + Weight(Rejection::Hidden), "disabled and hidden"},
        {CaptionWeight("Apply", "Appli"), "mistyped"},
        {CaptionWeight("Apply", "&apply"), "other case"},
        {Weight(Rejection::NotDirectChild), "deeper"},
        {Weight(Rejection::OtherParent), "in another dialog"},
        {Weight(Rejection::Disabled), "disabled"},
        {Weight(Rejection::Id, 500), "another id"},
        {ClassWeight("Button", "Static") + CaptionWeight("Apply", "Name:"), "another label"},
    };
    EXPECT_THAT(NamesOf(dialog, 20),
                ElementsAre("other case", "disabled", "deeper", "disabled and hidden", "mistyped",
                            "another id", "in another dialog", "another button", "label of that caption"));
    EXPECT_THAT(NamesOf(dialog, 2), ElementsAre("other case", "disabled"));
    EXPECT_THAT(NamesOf(dialog, 0), IsEmpty());
}

TEST(MissRanking, KeepsTheOrderOfEquals) {
    EXPECT_THAT(NamesOf({{8, "first"}, {8, "second"}, {6, "nearer"}, {8, "third"}}, 3),
                ElementsAre("nearer", "first", "second"));
    NearestList full(1);
    full.Add(8, 0);
    EXPECT_FALSE(full.HasPlaceFor(8)); // which spares the tests of thousands of windows
    EXPECT_TRUE(full.HasPlaceFor(7));
}

TEST(MissRanking, RanksTexts) {
    const std::vector<std::string> items = {"Box",
                                            "Hole 1",
                                            "Hole 2",
                                            "Locked",
                                            "hole 2",
                                            "Hole 21",
                                            "Bohrung \xC3\xBC"
                                            "2"};
    EXPECT_THAT(NearestTexts("Hole 2", items, TextTest::Equal, 3), ElementsAre(2, 4, 5));
    EXPECT_THAT(NearestTexts("Hoel 2", items, TextTest::Equal, 2), ElementsAre(2, 4));
    EXPECT_THAT(NearestTexts("hole", items, TextTest::BeginsWith, 1), ElementsAre(4));
    EXPECT_THAT(NearestTexts("x", {}, TextTest::Equal, 3), IsEmpty());
}

} // namespace
