// Which of many windows or items came nearest to what was looked for. Texts are UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace explain {

// How a text was tested.
enum class TextTest { Equal, Contains, BeginsWith };

// What stands between a text and the wanted one, from next to nothing to everything.
enum class TextDifference {
    None,
    Case,     // upper and lower case
    Marks,    // "&" before the letter of a key, the dots or the key behind the text of a command
    Spelling, // some letters
    Other
};

struct TextComparison {
    TextDifference difference = TextDifference::None;
    int distance = 0; // 0 for a text that passes, 1000 for one that has nothing in common
};

TextComparison Compare(std::string_view wanted, std::string_view actual, TextTest test);

// Why something was rejected.
enum class Rejection {
    Late, // passes by now
    Occurrence,
    Disabled,
    NotDirectChild, // deeper below the parent
    Owned,
    Hidden,
    Id,
    Caption,
    Style,
    Program,
    OtherParent,
    Class,
    Kind,
};

// How far one rejection takes a candidate away. `distance` is that of the texts, or of the two ids in
// decimal.
int Weight(Rejection rejection, int distance = 1000) noexcept;

// Keeps the nearest candidates: those with the least weight, the first of equals.
class NearestList {
public:
    // What is farther away than `farthest` has nothing to do with what was wanted.
    explicit NearestList(std::size_t most, int farthest = kFarthest) : m_most(most), m_farthest(farthest) {}

    // Whether a candidate of that weight would have a place now. One that already has not needs no further
    // test, as weights only grow.
    bool HasPlaceFor(int weight) const noexcept;
    // `candidate` is the caller's own number for it.
    void Add(int weight, std::size_t candidate);
    // The candidates that have a place, the nearest first.
    std::vector<std::size_t> Nearest() const;

    static constexpr int kFarthest = 110;

private:
    struct Entry {
        int weight;
        std::size_t candidate;
    };
    std::size_t m_most;
    int m_farthest;
    std::vector<Entry> m_entries;
};

// The texts nearest to the wanted one, the nearest first, as indices. For lists, trees and bars.
std::vector<std::size_t> NearestTexts(std::string_view wanted, const std::vector<std::string>& texts,
                                      TextTest test, std::size_t most);

} // namespace explain
