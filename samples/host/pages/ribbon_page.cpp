// The dialog in which the ribbon is customised.
#include "dialog.h"
#include "frame.h"
#include "host_ids.h"
#include "ribbon_widget.h"

namespace sample_host {
namespace {

constexpr ControlSpec kControls[] = {
    {.className = "Static", .text = "Form to customise:", .area = {8, 8, 120, 9}, .id = ids::kLabel},
    {.className = "Button",
     .text = "Close",
     .style = BS_DEFPUSHBUTTON | WS_TABSTOP,
     .area = {82, 100, 50, 14},
     .id = IDOK},
};

bool Handle(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG) {
        RECT area{8, 20, 132, 94};
        MapDialogRect(dialog, &area);
        AddRibbonWidget(dialog, {area.left, area.top, area.right - area.left, area.bottom - area.top},
                        ids::kRibbonWidget, "Ribbon forms", {"Home", "Sketch", "Assembly", "Drawing"});
    }
    return false;
}

} // namespace

void OpenRibbonDialog() {
    OpenModelessDialog(DialogOwner(), {.name = "Customise ribbon",
                                       .caption = "Customise ribbon",
                                       .style = kModalFrameStyle,
                                       .area = {80, 80, 140, 120},
                                       .controls = kControls,
                                       .handler = Handle});
}

} // namespace sample_host
