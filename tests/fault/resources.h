// What processes and the desktop hold, and what an action may have left there.
#pragma once

#include <windows.h>

#include <cstddef>
#include <string>
#include <vector>

namespace fault_tests {

struct Resources {
    std::size_t handles = 0; // of the kernel
    std::size_t gdi = 0;     // 0 where the system does not tell
    std::size_t user = 0;    // likewise
    std::size_t windows = 0; // with their children
    std::size_t privateKiB = 0;
};
Resources ResourcesOf(HANDLE process);

struct GlobalAtom {
    ATOM atom;
    std::string name;
};
std::vector<GlobalAtom> GlobalAtoms();
// Those that were not there before; they are removed.
std::vector<std::string> TakeNewAtoms(const std::vector<GlobalAtom>& before);

// A mouse button that is down on the desktop is released.
bool TakePressedButton();

// Whether input moves the cursor, as it does unless somebody blocks the mouse.
bool IsMouseFree();

} // namespace fault_tests
