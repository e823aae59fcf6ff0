// Why a search found nothing: the windows that came nearest and the tests that rejected each.
#pragma once

#include <span>
#include <string>
#include <vector>

#include <windows.h>

#include "engine/window_search.h"

namespace explain {

// Texts are UTF-8.
struct Miss {
    HWND window = nullptr;            // null for something that is no window, as an item of a tree
    std::string name;                 // "Button 'OK' id 1"
    std::vector<std::string> reasons; // "is disabled", "caption 'Open File' does not contain 'Open file'"
    std::string hint;    // what would make the search find it ("add &H40 to the flags"), or empty
    RECT rectangle = {}; // in screen coordinates, pixels
};

// At most `most` of them, the nearest first. Runs every test of the search on every window that the search
// could have meant, those of other parents included; reads nothing from a program that hangs. `searches`:
// what was looked for, one after the other.
std::vector<Miss> NearestMisses(std::span<const engine::WindowCriteria> searches, std::size_t most = 5);

} // namespace explain
