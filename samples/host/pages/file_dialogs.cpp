// Dialogs with the identifiers of the system's file dialogs: one as newer systems show it for saving, with
// an address bar, and one as they show it for opening.
#include "dialog.h"
#include "frame.h"
#include "host_ids.h"

#include <commctrl.h>
#include <string>

namespace sample_host {
namespace {

constexpr DWORD kBarStyle = CCS_NORESIZE | CCS_NOPARENTALIGN | CCS_NODIVIDER;

// A list deeper in the dialog, whose identifier is that of the default button.
constexpr ControlSpec kListControls[] = {
    {.className = "ListBox", .style = WS_BORDER, .area = {0, 0, 180, 40}, .id = IDOK},
};

constexpr ControlSpec kSaveControls[] = {
    {.className = TOOLBARCLASSNAMEA,
     .text = "Address: C:\\Drawings",
     .style = kBarStyle,
     .area = {8, 6, 180, 14},
     .id = ids::kAddressBar},
    {.className = "Static", .text = "File &name:", .area = {8, 74, 40, 9}, .id = ids::kLabel},
    {.className = "Edit",
     .text = "Drawing 1",
     .style = WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
     .area = {50, 72, 138, 13},
     .id = ids::kEdit},
    {.className = "Button",
     .text = "&Save",
     .style = BS_DEFPUSHBUTTON | WS_TABSTOP,
     .area = {84, 92, 50, 14},
     .id = IDOK},
    {.className = "Button", .text = "Cancel", .style = WS_TABSTOP, .area = {138, 92, 50, 14}, .id = IDCANCEL},
};

constexpr ControlSpec kOpenControls[] = {
    {.className = "Static", .text = "File &name:", .area = {8, 10, 40, 9}, .id = ids::kLabel},
    {.className = "Edit",
     .style = WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
     .area = {50, 8, 138, 13},
     .id = ids::kFileName},
    {.className = "Button",
     .text = "&Open",
     .style = BS_DEFPUSHBUTTON | WS_TABSTOP,
     .area = {84, 28, 50, 14},
     .id = IDOK},
    {.className = "Button", .text = "Cancel", .style = WS_TABSTOP, .area = {138, 28, 50, 14}, .id = IDCANCEL},
};

// The frame's status bar tells the name that the dialog closed with.
void Report(HWND dialog, const char* what, int field) {
    char name[MAX_PATH] = "";
    GetDlgItemTextA(dialog, field, name, MAX_PATH);
    SetStatus(std::string(what) + name);
}

bool IsConfirmed(UINT message, WPARAM wParam) {
    return message == WM_COMMAND && LOWORD(wParam) == IDOK && HIWORD(wParam) == BN_CLICKED;
}

bool HandleSave(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) {
        const HWND view = AddChildDialog(dialog,
                                         {.name = "Save drawing.View",
                                          .caption = "",
                                          .style = WS_CHILD | WS_VISIBLE | DS_CONTROL,
                                          .area = {8, 24, 180, 44},
                                          .controls = kListControls},
                                         ids::kShownTab);
        SetWindowPos(view, HWND_TOP, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE); // comes before the button
    }
    if (IsConfirmed(message, wParam))
        Report(dialog, "Saved: ", ids::kEdit);
    return false;
}

bool HandleOpen(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (IsConfirmed(message, wParam))
        Report(dialog, "Opened: ", ids::kFileName);
    return false;
}

} // namespace

void OpenSaveDrawingDialog() {
    OpenModelessDialog(Frame(), {.name = "Save drawing",
                                 .caption = "Save drawing",
                                 .style = kModalFrameStyle,
                                 .area = {60, 60, 196, 112},
                                 .controls = kSaveControls,
                                 .handler = HandleSave});
}

void OpenDrawingDialog() {
    OpenModelessDialog(Frame(), {.name = "Open drawing",
                                 .caption = "Open drawing",
                                 .style = kModalFrameStyle,
                                 .area = {60, 60, 196, 48},
                                 .controls = kOpenControls,
                                 .handler = HandleOpen});
}

} // namespace sample_host
