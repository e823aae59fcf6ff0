// Questions about dialogs and texts that other in-house programs ask too: exported by the module.
#pragma once

#include <windows.h>

#define GHOSTHAND_EXPORT __declspec(dllexport)

class ghSharedUtils {
public:
    // The topmost visible and enabled popup with a dialog's modal frame among the windows of `window`'s
    // level that belong to its process; null when there is none.
    static GHOSTHAND_EXPORT HWND active_dialog(HWND window);
    // Non-zero for a popup with a dialog's modal frame.
    static GHOSTHAND_EXPORT int is_popup_dialog(HWND window);
    // Case-sensitive; an empty prefix starts every text.
    static GHOSTHAND_EXPORT bool is_starts_from(const char* text, const char* prefix);
};
