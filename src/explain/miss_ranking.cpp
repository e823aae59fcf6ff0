#include "explain/miss_ranking.h"

#include <algorithm>
#include <iterator>

namespace explain {

namespace {

using Characters = std::u32string;

// Longer texts differ in what stands at their beginning, or not at all in a way that a reader would see.
constexpr std::size_t kMostCompared = 120;

// Malformed UTF-8 is compared byte for byte.
Characters Decode(std::string_view text) {
    Characters characters;
    for (std::size_t at = 0; at < text.size() && characters.size() < kMostCompared;) {
        const auto lead = static_cast<unsigned char>(text[at]);
        const std::size_t length = lead < 0xC0 ? 1 : lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
        char32_t character = length == 1 ? lead : lead & (0x7Fu >> length);
        for (std::size_t next = 1; next < length && at + next < text.size(); ++next) {
            character = character << 6 | (static_cast<unsigned char>(text[at + next]) & 0x3Fu);
        }
        characters.push_back(character);
        at += length;
    }
    return characters;
}

// The scripts of the captions that occur; the C library's own table depends on the program's locale.
char32_t ToLower(char32_t character) noexcept {
    const auto within = [&](char32_t first, char32_t last) {
        return character >= first && character <= last;
    };
    if (within('A', 'Z') || (within(0xC0, 0xDE) && character != 0xD7) || within(0x391, 0x3A9) ||
        within(0x410, 0x42F)) {
        return character + 32;
    }
    if (within(0x400, 0x40F)) {
        return character + 80;
    }
    const bool evenIsUpper = within(0x100, 0x137) || within(0x14A, 0x177) || within(0x460, 0x4FF);
    const bool oddIsUpper = within(0x139, 0x148) || within(0x179, 0x17E);
    return (evenIsUpper && character % 2 == 0) || (oddIsUpper && character % 2 == 1) ? character + 1
                                                                                     : character;
}

Characters Lowered(Characters text) {
    std::ranges::transform(text, text.begin(), ToLower);
    return text;
}

// Without what a menu or button shows beside its words.
Characters WithoutMarks(Characters text) {
    text.resize(std::min(text.find(U'\t'), text.size()));
    std::erase(text, U'&');
    while (!text.empty() &&
           (text.back() == U'.' || text.back() == U' ' || text.back() == U':' || text.back() == 0x2026)) {
        text.pop_back();
    }
    return text;
}

bool Passes(const Characters& wanted, const Characters& actual, TextTest test) {
    switch (test) {
    case TextTest::Equal:
        return actual == wanted;
    case TextTest::Contains:
        return actual.find(wanted) != Characters::npos;
    case TextTest::BeginsWith:
        return actual.starts_with(wanted);
    }
    return false;
}

// How many characters must be put in, left out or replaced, or swapped with their neighbour, until the text
// passes.
std::size_t Edits(const Characters& wanted, const Characters& actual, TextTest test) {
    const std::size_t width = actual.size() + 1;
    std::vector<std::size_t> before(width), last(width), row(width);
    const bool anyBegin = test == TextTest::Contains;
    const bool anyEnd = test != TextTest::Equal;
    for (std::size_t column = 0; column < width; ++column) {
        row[column] = anyBegin ? 0 : column;
    }
    for (std::size_t line = 1; line <= wanted.size(); ++line) {
        std::swap(before, last);
        std::swap(last, row);
        row[0] = line;
        for (std::size_t column = 1; column < width; ++column) {
            const bool same = wanted[line - 1] == actual[column - 1];
            row[column] =
                std::min({last[column] + 1, row[column - 1] + 1, last[column - 1] + (same ? 0 : 1)});
            const bool swapped = line > 1 && column > 1 && wanted[line - 1] == actual[column - 2] &&
                                 wanted[line - 2] == actual[column - 1];
            if (swapped) {
                row[column] = std::min(row[column], before[column - 2] + 1);
            }
        }
    }
    return anyEnd ? *std::ranges::min_element(row) : row.back();
}

constexpr int kCaseDistance = 20;
constexpr int kMarksDistance = 40;
constexpr int kLeastSpellingDistance = 60;
// More than this share of the letters wrong is another text.
constexpr int kMostSpellingDistance = 450;

int SpellingDistance(const Characters& wanted, const Characters& actual, TextTest test) {
    const std::size_t whole =
        test == TextTest::Equal ? std::max(wanted.size(), actual.size()) : wanted.size();
    if (whole == 0 || actual.empty()) {
        return 1000;
    }
    const auto edits = static_cast<int>(std::min(Edits(wanted, actual, test), whole));
    // Among texts with as many edits the one of about the same length.
    const auto longer =
        static_cast<int>(std::max(wanted.size(), actual.size()) - std::min(wanted.size(), actual.size()));
    const int distance = 950 * edits / static_cast<int>(whole) + std::min(longer, 50);
    return std::clamp(distance, kLeastSpellingDistance, 1000);
}

} // namespace

TextComparison Compare(std::string_view wantedText, std::string_view actualText, TextTest test) {
    const Characters wanted = Decode(wantedText);
    const Characters actual = Decode(actualText);
    if (Passes(wanted, actual, test)) {
        return {};
    }
    const Characters wantedLow = Lowered(wanted);
    const Characters actualLow = Lowered(actual);
    if (Passes(wantedLow, actualLow, test)) {
        return {TextDifference::Case, kCaseDistance};
    }
    const Characters wantedWords = WithoutMarks(wantedLow);
    const Characters actualWords = WithoutMarks(actualLow);
    if (!wantedWords.empty() && Passes(wantedWords, actualWords, test)) {
        return {TextDifference::Marks, kMarksDistance};
    }
    const int distance = SpellingDistance(wantedWords.empty() ? wantedLow : wantedWords, actualWords, test);
    return {distance <= kMostSpellingDistance ? TextDifference::Spelling : TextDifference::Other, distance};
}

int Weight(Rejection rejection, int distance) noexcept {
    switch (rejection) {
    case Rejection::Late:
        return 0;
    case Rejection::Occurrence:
        return 4;
    case Rejection::Disabled:
        return 6;
    case Rejection::NotDirectChild:
    case Rejection::Owned:
        return 8;
    case Rejection::Hidden:
        return 10;
    case Rejection::Id:
        return 26 + distance / 100;
    case Rejection::Caption:
        return 5 + distance * 60 / 1000;
    case Rejection::Style:
        return 30;
    case Rejection::Program:
        return 10 + distance * 100 / 1000;
    case Rejection::OtherParent:
        return 34;
    case Rejection::Class:
        // Names of different classes have letters in common by chance.
        return distance > kMostSpellingDistance ? 72 : 12 + distance * 60 / 1000;
    case Rejection::Kind:
        return 40;
    }
    return NearestList::kFarthest;
}

bool NearestList::HasPlaceFor(int weight) const noexcept {
    return weight <= m_farthest && m_most > 0 &&
           (m_entries.size() < m_most || weight < m_entries.back().weight);
}

void NearestList::Add(int weight, std::size_t candidate) {
    if (!HasPlaceFor(weight)) {
        return;
    }
    if (m_entries.size() == m_most) {
        m_entries.pop_back();
    }
    m_entries.insert(std::ranges::upper_bound(m_entries, weight, {}, &Entry::weight), {weight, candidate});
}

std::vector<std::size_t> NearestList::Nearest() const {
    std::vector<std::size_t> candidates;
    std::ranges::transform(m_entries, std::back_inserter(candidates), &Entry::candidate);
    return candidates;
}

std::vector<std::size_t> NearestTexts(std::string_view wanted, const std::vector<std::string>& texts,
                                      TextTest test, std::size_t most) {
    NearestList nearest(most, 1000);
    for (std::size_t index = 0; index < texts.size(); ++index) {
        nearest.Add(Compare(wanted, texts[index], test).distance, index);
    }
    return nearest.Nearest();
}

} // namespace explain
