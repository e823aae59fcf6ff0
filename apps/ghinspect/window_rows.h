// What the tree shows, as values: read on any thread, without asking a program anything.
#pragma once

#include <string>
#include <vector>

#include <windows.h>

#include "explain/window_facts.h"

namespace inspector {

// What can be selected: a window, or a program where `window` is null.
struct Target {
    DWORD processId = 0;
    HWND window = nullptr;

    bool operator==(const Target&) const = default;
};

// How a target is written in the tree.
struct Label {
    std::wstring text;
    bool isVisible = true;
    bool hasChildren = false;
};

// "Button 'OK' id 1": the class, the caption and the id where there are any.
std::wstring NameOf(const explain::WindowFacts& facts);
// What is to be said of the program before one tries to drive it; empty for one like any other.
std::wstring NoteOn(const explain::ProgramFacts& program);
// Control characters become spaces, and a long text is cut.
std::wstring OneLine(std::wstring text, std::size_t longest);

// What is to be said of a window takes several questions to the system: it is asked for those that are seen.
Label LabelOf(HWND window);
// The top-level windows of the program.
std::vector<HWND> WindowsOf(const explain::ProgramFacts& program, bool withHidden);

struct ProgramRow {
    explain::ProgramFacts facts;
    Label label;
};

struct Branch {
    Target parent;
    std::vector<HWND> windows;
};

// The programs but this one, and what is below the targets that are open.
struct Snapshot {
    std::vector<ProgramRow> programs;
    std::vector<Branch> branches;
};

// `withHidden`: hidden top-level windows too, and programs that have no others.
Snapshot TakeSnapshot(const std::vector<Target>& open, bool withHidden);

} // namespace inspector
