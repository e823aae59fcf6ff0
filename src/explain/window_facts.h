// What is to be known of a window, read without asking its program anything: safe with one that hangs.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <windows.h>

namespace explain {

// Texts are UTF-8. Rectangles are in screen coordinates, in pixels.
struct WindowFacts {
    HWND window = nullptr;
    std::string className;
    std::string caption;
    int controlId = 0; // 0 for a window that has a menu in its place
    DWORD style = 0;
    DWORD extendedStyle = 0;
    bool isVisible = false;
    bool isEnabled = false;
    RECT rectangle = {};
    HWND parent = nullptr; // of a child
    HWND owner = nullptr;
    DWORD processId = 0;
    DWORD threadId = 0;
};

// A window that is gone gives facts without a window.
WindowFacts FactsOf(HWND window);

struct ProgramFacts {
    DWORD processId = 0;
    std::string name; // the file name with its extension, empty if it cannot be read
    std::string path;
    bool is32Bit = false;
    bool isElevated = false;   // and this process is not: its windows take no messages from here
    bool isHung = false;       // one of its visible top-level windows does not answer
    std::vector<HWND> windows; // top-level ones, from the front to the back
};

// Whether the window's thread answers, asked for at most 200 ms.
bool Answers(HWND window);

// The programs that have top-level windows, by name, then by process. `prefix` is a case-insensitive prefix
// of the file name; empty for all.
std::vector<ProgramFacts> Programs(std::string_view prefix = {});
// What of a program keeps scripts from driving it, a sentence each; empty if nothing does.
std::vector<std::string> Remarks(const ProgramFacts& program);

// The direct children, from the front to the back.
std::vector<HWND> ChildrenOf(HWND window);
// The style bits by their names in the system's headers, those that mean something for the class included
// ("BS_DEFPUSHBUTTON"); what has no name as one number.
std::vector<std::string> StyleNames(const WindowFacts& facts);

} // namespace explain
