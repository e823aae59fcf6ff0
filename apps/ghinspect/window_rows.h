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

struct Row {
    Target target;
    std::wstring label;
    bool isVisible = true;
    bool hasChildren = false;
};

// "Button 'OK' id 1": the class, the caption and the id where there are any.
std::wstring NameOf(const explain::WindowFacts& facts);
// What is to be said of the program before one tries to drive it; empty for one like any other.
std::wstring NoteOn(const explain::ProgramFacts& program);
// Control characters become spaces, and a long text is cut.
std::wstring OneLine(std::wstring text, std::size_t longest);

// Windows that are gone are left out.
std::vector<Row> RowsOf(const std::vector<HWND>& windows);
std::vector<Row> RowsBelow(HWND window);
// The top-level windows of the program.
std::vector<Row> RowsOf(const explain::ProgramFacts& program, bool withHidden);

struct Branch {
    Target parent;
    std::vector<Row> rows;
};

// The programs but this one, and what is below the targets that are open.
struct Snapshot {
    std::vector<explain::ProgramFacts> programs;
    std::vector<Row> programRows;
    std::vector<Branch> branches;
};

// `withHidden`: hidden top-level windows too, and programs that have no others.
Snapshot TakeSnapshot(const std::vector<Target>& open, bool withHidden);

} // namespace inspector
