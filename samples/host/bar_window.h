// Tool-bar-like windows of the host's own, as hosts with a control-bar library have them. They answer
// the system's tool bar messages with differences that drivers have to know:
// - the bit TBSTATE_ENABLED in a button's state means that the button is DISABLED;
// - TB_GETSTRINGA takes the plain string index in wParam, without a buffer size.
// They take the mouse; a bar in a popup is also walked by keys (bar_popup.h).
#pragma once

#include "control.h"

#include <string>
#include <vector>
#include <windows.h>

namespace sample_host {

enum class PopupKind {
    Plain,       // window class "BCGPopupMenu" around a bar of class "BCGToolBar:popup"
    Professional // window class "Afx:SamplePopup" around a bar of class "BCGPToolBar"
};

struct BarButton {
    unsigned command = 0; // 0 and without text: a separator
    std::string text{};
    bool checkable = false; // a click toggles it
    bool checked = false;
    bool disabled = false;
    bool textByIndex = false;         // the text has a string index instead of belonging to the button
    std::vector<BarButton> submenu{}; // opens as a popup
    PopupKind submenuKind = PopupKind::Plain;

    bool IsSeparator() const { return command == 0 && text.empty(); }
};

struct BarSpec {
    const char* className;
    const char* caption = "";
    std::vector<BarButton> buttons;
    bool vertical = false; // entries of a popup below one another
    int id = 0;
};

// A child of a watched window, at its origin; the caller places it.
HWND CreateBar(HWND parent, const BarSpec& bar);

// The size that shows every button, in pixels.
SIZE NaturalSize(HWND bar);

// Walks the hot item of a bar (VK_UP, VK_DOWN, VK_HOME, VK_END) or does what a click on it would
// (VK_RETURN). False for other keys.
bool WalkBar(HWND bar, WPARAM virtualKey);

} // namespace sample_host
