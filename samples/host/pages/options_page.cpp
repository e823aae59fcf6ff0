// The dialog with the program's options.
#include "dialog.h"
#include "frame.h"
#include "host_ids.h"
#include "option_tree.h"

namespace sample_host {
namespace {

constexpr ControlSpec kControls[] = {
    {.className = "Button",
     .text = "Close",
     .style = BS_DEFPUSHBUTTON | WS_TABSTOP,
     .area = {150, 150, 50, 14},
     .id = IDOK},
};

Option Options() {
    using enum Option::Kind;
    return {"Options",
            Group,
            "",
            false,
            {{"General",
              Group,
              "",
              false,
              {{"Units", Text, "mm"}, {"Save automatically", CheckBox, "1"}, {"Version", Text, "1.0", true}}},
             {"Display",
              Group,
              "",
              false,
              {{"Edges", CheckBox, "1"},
               {"Shadows", CheckBox, "0"},
               {"Background", Group, "", false, {{"Top", Text, "white"}, {"Bottom", Text, "grey"}}}}},
             {"Licence", CheckBox, "1", true}}};
}

bool Handle(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG) {
        RECT area{8, 8, 200, 144};
        MapDialogRect(dialog, &area);
        AddOptionTree(dialog, {area.left, area.top, area.right - area.left, area.bottom - area.top},
                      ids::kOptionTree, Options());
    }
    return false;
}

} // namespace

void OpenOptionsDialog() {
    OpenModelessDialog(DialogOwner(), {.name = "Options",
                                       .caption = "Options",
                                       .style = kModalFrameStyle,
                                       .area = {60, 60, 208, 170},
                                       .controls = kControls,
                                       .handler = Handle});
}

} // namespace sample_host
