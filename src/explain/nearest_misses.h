// Why a search found nothing: the windows that came nearest and the tests that rejected each.
#pragma once

#include <span>
#include <string>
#include <vector>

#include <windows.h>

#include "engine/window_search.h"
#include "explain/miss_ranking.h"

namespace explain {

// Texts are UTF-8.
struct Miss {
    HWND window = nullptr;            // null for something that is no window, as an item of a tree
    std::string name;                 // "Button 'OK' id 1"
    std::vector<std::string> reasons; // "is disabled", "caption 'Open File' does not contain 'Open file'"
    std::string hint;    // what would make the search find it ("add &H40 to the flags"), or empty
    RECT rectangle = {}; // in screen coordinates, pixels
    std::string line;    // the call in VBScript that would have found it, or empty where it was not made out
};

// At most `most` of them, the nearest first. Runs every test of the search on every window that the search
// could have meant, those of other parents included; reads nothing from a program that hangs. `searches`:
// what was looked for, one after the other.
std::vector<Miss> NearestMisses(std::span<const engine::WindowCriteria> searches, std::size_t most = 5);

// The same as values, for who mends the search.
struct RejectedWindow {
    HWND window = nullptr;
    std::size_t search = 0; // the one that came nearest to it
    std::vector<Rejection> rejections;
    std::uint32_t matches = 0;      // how many windows pass every test of that search
    bool hasUnaskedProgram = false; // the custom test was left out, as the program does not answer
    bool hasProgram = true;         // whether a window of the wanted program exists at all
};

// Whatever has been found when the tick count reaches `end`.
std::vector<RejectedWindow> RejectedWindows(std::span<const engine::WindowCriteria> searches,
                                            std::size_t most, ULONGLONG end);
Miss Describe(const engine::WindowCriteria& search, const RejectedWindow& rejected);

// "caption 'Open File' does not contain 'Open file': it differs only in upper and lower case"; `what` is the
// first word.
std::string TextReason(std::string_view what, std::string_view actual, std::string_view wanted,
                       TextTest test);
// How a window is called in a sentence, without asking its program: "Button 'OK' id 1".
std::string NameOf(HWND window);
// A text in single quotes on one line, shortened where it is long.
std::string Quoted(std::string_view text);
// "&H40"
std::string Hexadecimal(std::uint32_t number);

} // namespace explain
