// Dialogs of the system's own class "#32770", made from a description.
#pragma once

#include "control.h"

#include <span>
#include <windows.h>

namespace sample_host {

// Acts on a message of the dialog; returns whether that settled it. WM_INITDIALOG comes when all
// controls are there and watched.
using DialogHandler = bool (*)(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam);

struct DialogSpec {
    const char* name; // the window's name in the host, also the prefix of its controls' names
    const char* caption;
    DWORD style;
    DWORD exStyle = 0;
    Area area{}; // in dialog units, from the owner's client area
    std::span<const ControlSpec> controls;
    DialogHandler handler = nullptr;
};

inline constexpr DWORD kModalFrameStyle = WS_POPUP | WS_CAPTION | WS_SYSMENU | DS_MODALFRAME;

// Returns what ended it: IDOK, IDCANCEL or what a handler gave to EndDialog.
INT_PTR RunModalDialog(HWND owner, const DialogSpec& dialog);

// A dialog that leaves the owner usable. While one of that name is open it is brought to the front.
HWND OpenModelessDialog(HWND owner, const DialogSpec& dialog);

// A dialog inside another, as the pages of a property sheet are; style should have DS_CONTROL.
HWND AddChildDialog(HWND parent, const DialogSpec& dialog, int id);

// The modeless dialog that the message is for gets its keys; true when that used the message up.
bool IsModelessDialogMessage(MSG& message);

} // namespace sample_host
