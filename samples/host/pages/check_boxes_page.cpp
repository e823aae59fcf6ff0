// Check boxes with two and three states, automatic and toggled by the host, and one that never changes.
#include "control.h"
#include "host_ids.h"
#include "mdi_page.h"

#include <windowsx.h>

namespace sample_host {
namespace {

void AddBox(HWND page, const char* text, DWORD style, int id, int y) {
    AddControl(page, {.className = "Button",
                      .text = text,
                      .style = style | WS_TABSTOP,
                      .area = {10, y, 260, 20},
                      .id = id});
}

void Build(HWND page) {
    AddBox(page, "&Visible", BS_AUTOCHECKBOX, ids::kCheckBox, 10);
    AddBox(page, "&Inherit", BS_AUTO3STATE, ids::kTriStateBox, 35);
    AddBox(page, "&Manual", BS_CHECKBOX, ids::kManualBox, 60);
    AddBox(page, "Manual, &three states", BS_3STATE, ids::kManualTriStateBox, 85);
    AddBox(page, "&Stubborn", BS_CHECKBOX, ids::kStubbornBox, 110);
    AddBox(page, "Frozen", BS_AUTOCHECKBOX | WS_DISABLED, ids::kDisabledBox, 135);
}

void Advance(HWND box, int states) {
    Button_SetCheck(box, (Button_GetCheck(box) + 1) % states);
}

bool Handle(HWND, UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    if (message != WM_COMMAND || HIWORD(wParam) != BN_CLICKED)
        return false;
    if (LOWORD(wParam) == ids::kManualBox)
        Advance(reinterpret_cast<HWND>(lParam), 2);
    if (LOWORD(wParam) == ids::kManualTriStateBox)
        Advance(reinterpret_cast<HWND>(lParam), 3);
    return false;
}

} // namespace

void OpenCheckBoxesPage() {
    OpenMdiPage({.name = "Check boxes",
                 .caption = "Check boxes",
                 .width = 300,
                 .height = 210,
                 .build = Build,
                 .handler = Handle});
}

} // namespace sample_host
