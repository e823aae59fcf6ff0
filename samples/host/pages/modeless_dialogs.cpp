// Dialogs that leave the frame usable: "Find" with a modal frame, "Palette" without.
#include "dialog.h"
#include "frame.h"
#include "host_ids.h"

namespace sample_host {
namespace {

constexpr ControlSpec kFindControls[] = {
    {.className = "Static", .text = "Fi&nd what:", .area = {8, 10, 44, 9}, .id = ids::kLabel},
    {.className = "Edit",
     .style = WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
     .area = {56, 8, 110, 13},
     .id = ids::kEdit},
    {.className = "Button",
     .text = "Match &case",
     .style = BS_AUTOCHECKBOX | WS_TABSTOP,
     .area = {8, 30, 80, 11},
     .id = ids::kCheckBox},
    {.className = "Button",
     .text = "C&lose",
     .style = WS_TABSTOP,
     .area = {116, 30, 50, 14},
     .id = ids::kCloseByCode},
};

constexpr ControlSpec kPaletteControls[] = {
    {.className = "Button", .text = "&Apply", .style = WS_TABSTOP, .area = {6, 6, 50, 14}, .id = ids::kApply},
    {.className = "Edit",
     .text = "palette",
     .style = WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
     .area = {6, 26, 74, 13},
     .id = ids::kEdit},
};

bool HandleFind(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message != WM_COMMAND || LOWORD(wParam) != ids::kCloseByCode)
        return false;
    DestroyWindow(dialog);
    return true;
}

// The palette moves by code of its own: a press on its caption must not start the system's move loop,
// which ends only when a real mouse button is released.
bool HandlePalette(HWND, UINT message, WPARAM wParam, LPARAM) {
    return message == WM_NCLBUTTONDOWN && wParam == HTCAPTION;
}

} // namespace

void OpenFindDialog() {
    OpenModelessDialog(Frame(), {.name = "Find",
                                 .caption = "Find",
                                 .style = kModalFrameStyle,
                                 .area = {120, 60, 174, 52},
                                 .controls = kFindControls,
                                 .handler = HandleFind});
}

void OpenPaletteDialog() {
    OpenModelessDialog(Frame(), {.name = "Palette",
                                 .caption = "Palette",
                                 .style = WS_POPUP | WS_CAPTION | WS_SYSMENU,
                                 .exStyle = WS_EX_TOOLWINDOW,
                                 .area = {300, 60, 88, 46},
                                 .controls = kPaletteControls,
                                 .handler = HandlePalette});
}

} // namespace sample_host
