// Two child dialogs with equal labels, as the pages of a property sheet have them: the first one is
// hidden, the second one is shown.
#include "dialog.h"
#include "frame.h"
#include "host_ids.h"

namespace sample_host {
namespace {

constexpr ControlSpec kHiddenControls[] = {
    {.className = "Static", .text = "Radius", .area = {6, 8, 40, 9}, .id = ids::kLabel},
    {.className = "Edit",
     .text = "hidden",
     .style = WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
     .area = {50, 6, 60, 13},
     .id = ids::kEdit},
};

constexpr ControlSpec kShownControls[] = {
    {.className = "Static", .text = "Radius", .area = {6, 8, 40, 9}, .id = ids::kLabel},
    {.className = "Edit",
     .text = "shown",
     .style = WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
     .area = {50, 6, 60, 13},
     .id = ids::kEdit},
    {.className = "Button",
     .text = "Through all",
     .style = BS_AUTOCHECKBOX | WS_TABSTOP,
     .area = {6, 26, 90, 11},
     .id = ids::kCheckBox},
};

constexpr ControlSpec kControls[] = {
    {.className = "Button",
     .text = "OK",
     .style = BS_DEFPUSHBUTTON | WS_TABSTOP,
     .area = {86, 66, 50, 14},
     .id = IDOK},
};

constexpr DWORD kTabStyle = WS_CHILD | DS_CONTROL | WS_CAPTION;

bool Handle(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (message != WM_INITDIALOG)
        return false;
    AddChildDialog(dialog,
                   {.name = "Twins.Hidden",
                    .caption = "Hole, hidden",
                    .style = kTabStyle,
                    .area = {6, 6, 130, 54},
                    .controls = kHiddenControls},
                   ids::kHiddenTab);
    AddChildDialog(dialog,
                   {.name = "Twins.Shown",
                    .caption = "Hole",
                    .style = kTabStyle | WS_VISIBLE,
                    .area = {6, 6, 130, 54},
                    .controls = kShownControls},
                   ids::kShownTab);
    return false;
}

} // namespace

void OpenTwinsDialog() {
    OpenModelessDialog(Frame(), {.name = "Twins",
                                 .caption = "Twins",
                                 .style = kModalFrameStyle,
                                 .area = {60, 120, 142, 86},
                                 .controls = kControls,
                                 .handler = Handle});
}

} // namespace sample_host
