// Questions about dialogs and texts that other in-house programs ask too: the module exports them
// (ghosthand.def).
#pragma once

#include <windows.h>

class ghSharedUtils {
public:
    // The topmost visible and enabled popup with a dialog's modal frame among the windows of `window`'s
    // level that belong to its process; null when there is none.
    static HWND active_dialog(HWND window);
    // Non-zero for a popup with a dialog's modal frame.
    static int is_popup_dialog(HWND window);
    // Case-sensitive; an empty prefix starts every text.
    static bool is_starts_from(const char* text, const char* prefix);
};
