// A modal dialog with every standard control, and the dialog that opens from it.
#include "dialog.h"
#include "frame.h"
#include "host_ids.h"

#include <iterator>
#include <vector>

namespace sample_host {
namespace {

constexpr ControlSpec kNestedControls[] = {
    {.className = "Static", .text = "&Tolerance:", .area = {8, 10, 50, 9}, .id = ids::kLabel},
    {.className = "Edit",
     .text = "0.01",
     .style = WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
     .area = {62, 8, 80, 13},
     .id = ids::kEdit},
    {.className = "Button",
     .text = "OK",
     .style = BS_DEFPUSHBUTTON | WS_TABSTOP,
     .area = {36, 34, 50, 14},
     .id = IDOK},
    {.className = "Button", .text = "Cancel", .style = WS_TABSTOP, .area = {92, 34, 50, 14}, .id = IDCANCEL},
};

constexpr ControlSpec kControls[] = {
    {.className = "Static", .text = "&Name:", .area = {8, 10, 46, 9}, .id = ids::kLabel},
    {.className = "Edit",
     .text = "Bracket",
     .style = WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
     .area = {58, 8, 100, 13},
     .id = ids::kEdit},
    {.className = "Static", .text = "Note&s:", .area = {8, 28, 46, 9}, .id = ids::kSecondLabel},
    {.className = "Edit",
     .text = "First line\r\nSecond line",
     .style = WS_BORDER | WS_TABSTOP | ES_MULTILINE | ES_AUTOVSCROLL | WS_VSCROLL,
     .area = {58, 26, 100, 30},
     .id = ids::kSecondEdit},
    {.className = "Button",
     .text = "Options",
     .style = BS_GROUPBOX,
     .area = {8, 62, 150, 82},
     .id = ids::kGroupBox},
    {.className = "Button",
     .text = "&Visible",
     .style = BS_AUTOCHECKBOX | WS_TABSTOP | WS_GROUP,
     .area = {16, 74, 64, 11},
     .id = ids::kCheckBox},
    {.className = "Button",
     .text = "&Inherit",
     .style = BS_AUTO3STATE | WS_TABSTOP,
     .area = {16, 88, 64, 11},
     .id = ids::kTriStateBox},
    {.className = "Button",
     .text = "&Manual",
     .style = BS_CHECKBOX | WS_TABSTOP,
     .area = {16, 102, 64, 11},
     .id = ids::kManualBox},
    {.className = "Button",
     .text = "Frozen",
     .style = BS_AUTOCHECKBOX | WS_TABSTOP | WS_DISABLED,
     .area = {16, 116, 64, 11},
     .id = ids::kDisabledBox},
    {.className = "Button",
     .text = "M&etric",
     .style = BS_AUTORADIOBUTTON | WS_TABSTOP | WS_GROUP,
     .area = {90, 74, 60, 11},
     .id = ids::kRadioMetric},
    {.className = "Button",
     .text = "Im&perial",
     .style = BS_AUTORADIOBUTTON,
     .area = {90, 88, 60, 11},
     .id = ids::kRadioImperial},
    {.className = "ComboBox",
     .style = CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP | WS_GROUP,
     .area = {170, 8, 110, 80},
     .id = ids::kDropDownList},
    {.className = "ComboBox",
     .style = CBS_DROPDOWN | WS_VSCROLL | WS_TABSTOP,
     .area = {170, 26, 110, 80},
     .id = ids::kDropDown},
    {.className = "ListBox",
     .style = WS_BORDER | LBS_NOTIFY | WS_VSCROLL | WS_TABSTOP,
     .area = {170, 46, 110, 50},
     .id = ids::kListBox},
    {.className = "Button",
     .text = "&Apply",
     .style = WS_TABSTOP,
     .area = {8, 152, 50, 14},
     .id = ids::kApply},
    {.className = "Button",
     .text = "&Locked",
     .style = WS_TABSTOP | WS_DISABLED,
     .area = {62, 152, 50, 14},
     .id = ids::kDisabledButton},
    {.className = "Button",
     .text = "Neste&d...",
     .style = WS_TABSTOP,
     .area = {116, 152, 50, 14},
     .id = ids::kOpenNested},
    {.className = "Button",
     .text = "OK",
     .style = BS_DEFPUSHBUTTON | WS_TABSTOP,
     .area = {176, 152, 50, 14},
     .id = IDOK},
    {.className = "Button",
     .text = "Cancel",
     .style = WS_TABSTOP,
     .area = {230, 152, 50, 14},
     .id = IDCANCEL},
};

void FillLists(HWND dialog) {
    for (const char* material : {"Aluminium", "Brass", "Steel", "Steel, stainless", "Titanium"}) {
        const auto text = reinterpret_cast<LPARAM>(material);
        SendDlgItemMessageA(dialog, ids::kDropDownList, CB_ADDSTRING, 0, text);
        SendDlgItemMessageA(dialog, ids::kListBox, LB_ADDSTRING, 0, text);
    }
    for (const char* scale : {"1:1", "1:2", "1:5", "1:10"})
        SendDlgItemMessageA(dialog, ids::kDropDown, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(scale));
    SendDlgItemMessageA(dialog, ids::kDropDownList, CB_SETCURSEL, 2, 0);
    SetDlgItemTextA(dialog, ids::kDropDown, "1:2");
    CheckRadioButton(dialog, ids::kRadioMetric, ids::kRadioImperial, ids::kRadioMetric);
}

// Where the system has no rich edit control, the dialog goes without one.
void AddRichEdit(HWND dialog) {
    static const HMODULE library = LoadLibraryA("riched20.dll");
    if (!library)
        return;
    RECT area{170, 102, 280, 144};
    MapDialogRect(dialog, &area);
    AddControl(dialog, {.className = "RichEdit20A",
                        .text = "Formatted text",
                        .style = WS_BORDER | WS_TABSTOP | ES_MULTILINE,
                        .area = {area.left, area.top, area.right - area.left, area.bottom - area.top},
                        .id = ids::kRichEdit});
}

void Toggle(HWND dialog, int checkBox) {
    const bool checked = IsDlgButtonChecked(dialog, checkBox) == BST_CHECKED;
    CheckDlgButton(dialog, checkBox, checked ? BST_UNCHECKED : BST_CHECKED);
}

bool Handle(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) {
        FillLists(dialog);
        AddRichEdit(dialog);
        return false;
    }
    if (message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED)
        return false;
    switch (LOWORD(wParam)) {
    case ids::kManualBox:
        Toggle(dialog, ids::kManualBox);
        return true;
    case ids::kOpenNested:
        RunModalDialog(dialog, {.name = "Nested",
                                .caption = "Nested",
                                .style = kModalFrameStyle,
                                .area = {30, 30, 150, 56},
                                .controls = kNestedControls});
        return true;
    default:
        return false;
    }
}

} // namespace

void OpenSettingsDialog() {
    RunModalDialog(DialogOwner(), {.name = "Settings",
                                   .caption = "Settings",
                                   .style = kModalFrameStyle,
                                   .area = {40, 30, 288, 174},
                                   .controls = kControls,
                                   .handler = Handle});
}

} // namespace sample_host
