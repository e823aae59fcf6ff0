// Child windows with the look that all of the sample host shares.
#pragma once

#include "subclass.h"

#include <windows.h>

#include <commctrl.h>

namespace sample_host {

struct Area {
    int x, y, width, height;
};

// In a dialog template the area is in dialog units, elsewhere in pixels.
struct ControlSpec {
    const char* className;
    const char* text = "";
    DWORD style = 0; // beside WS_CHILD and WS_VISIBLE
    DWORD exStyle = 0;
    Area area{};
    int id = 0;
    bool hidden = false;
    // Gets the messages before the control's own class does, in AddControl only.
    SubclassProcedure behaviour = nullptr;
};

// A child of a watched window, in the font of dialogs, watched itself.
HWND AddControl(HWND parent, const ControlSpec& control);

// A child window with a name of its own and room for controls: SampleHostPanel. With WS_CAPTION in its
// style it has a title bar. Passes WM_COMMAND and WM_NOTIFY on to its parent.
HWND AddPanel(HWND parent, const ControlSpec& panel);

// A plain window class of the host, registered on first use.
void RegisterHostClass(const char* name, WNDPROC procedure, int backgroundColor = COLOR_3DFACE);

HINSTANCE Instance();
HFONT DialogFont();

} // namespace sample_host
