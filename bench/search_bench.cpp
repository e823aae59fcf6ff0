// What a search costs beyond the calls that its criteria need.

#include "bench.h"

#include "engine/window_finders.h"
#include "support/sample_host.h"

#include <cstring>
#include <stdexcept>

namespace {

constexpr int kDescendants = 1000;

// The last descendant is an edit control, the only one: each search looks at all of them.

BOOL CALLBACK TakeVisibleEdit(HWND window, LPARAM parameter) {
    char name[260] = "";
    if (IsWindowVisible(window) && GetClassNameA(window, name, sizeof name) != 0 &&
        std::strstr(name, "Edit") != nullptr) {
        *reinterpret_cast<HWND*>(parameter) = window;
        return FALSE;
    }
    return TRUE;
}

HWND FindByHand(HWND parent) {
    HWND found = nullptr;
    EnumChildWindows(parent, TakeVisibleEdit, reinterpret_cast<LPARAM>(&found));
    return found;
}

HWND FindByEngine(HWND parent) {
    return engine::FindControl(parent, engine::kEdit, 0, engine::kAnyDescendant);
}

void Measure(bench::Report& report) {
    const support::SampleHost host("--many-children " + std::to_string(kDescendants));
    HWND tree = nullptr;
    support::Eventually([&] {
        tree = FindWindowA(sample_host::ids::kTreeClass, nullptr);
        return tree != nullptr && FindByHand(tree) != nullptr;
    });
    if (tree == nullptr || FindByHand(tree) == nullptr || FindByEngine(tree) != FindByHand(tree)) {
        throw std::runtime_error("the two searches do not find the same window");
    }
    report.Compare({"search among 1000 descendants", [&] { FindByEngine(tree); }},
                   {"the same enumeration by hand", [&] { FindByHand(tree); }}, {.aim = 1.2, .rounds = 31});
}

const bench::Registration kSearch("search", Measure);

} // namespace
