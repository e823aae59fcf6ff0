// The menu bar of the frame.
#pragma once

#include <windows.h>

namespace sample_host {

// The position of the menu that ends with the list of MDI children.
inline constexpr int kWindowMenuPosition = 4;

HMENU CreateMenuBar();

// Toggles the check mark of a command of &View, or moves the radio mark within "&Zoom". Returns whether
// the command is marked now; false also for commands without a mark.
bool ToggleMark(HMENU menuBar, unsigned command);

} // namespace sample_host
