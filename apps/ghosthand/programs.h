// The running programs and the files that they have loaded.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <windows.h>

namespace apps {

struct Program {
    DWORD processId = 0;
    std::wstring name;                 // of its file
    std::vector<std::wstring> modules; // full paths, its own first; empty where the rights do not suffice
};

// All but this one.
std::vector<Program> RunningPrograms();

// "sample_host.exe (process 12)"
std::string NameOf(const Program& program);

// Whether a path is another one or lies below it, as a folder. Both are full paths.
bool IsAtOrBelow(const std::wstring& path, const std::wstring& place);

// Who keeps `place`, a file or a folder, from being replaced; a line for each. Files that are in use without
// a program of which that can be told are named themselves. The process `except` is not named: an installer
// knows of itself.
std::vector<std::string> HoldersOf(const std::wstring& place, DWORD except = 0);

} // namespace apps
