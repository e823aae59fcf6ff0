// The file names of the programs that own windows.
#pragma once

#include <string>
#include <vector>

#include <windows.h>

namespace engine {

// Asks for each program once, as a desktop holds many windows of few programs.
class ProgramNames {
public:
    // The file name, with its extension, of the program that owns the window; empty if it cannot be read.
    // Valid until the next call.
    const std::string& NameOf(HWND window);

private:
    struct Program {
        DWORD processId;
        std::string name;
    };
    std::vector<Program> m_known;
};

} // namespace engine
