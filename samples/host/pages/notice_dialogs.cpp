// Small modal dialogs: "About", and "Late", which a misbehaving host opens when nobody expects it.
#include "dialog.h"
#include "frame.h"
#include "host_ids.h"

namespace sample_host {
namespace {

constexpr ControlSpec kAboutControls[] = {
    {.className = "Static",
     .text = "A program to be driven by Ghosthand.",
     .area = {8, 10, 150, 9},
     .id = ids::kLabel},
    {.className = "Button",
     .text = "OK",
     .style = BS_DEFPUSHBUTTON | WS_TABSTOP,
     .area = {58, 30, 50, 14},
     .id = IDOK},
};

constexpr ControlSpec kLateControls[] = {
    {.className = "Static", .text = "Sorry for being late.", .area = {8, 10, 120, 9}, .id = ids::kLabel},
    {.className = "Button",
     .text = "OK",
     .style = BS_DEFPUSHBUTTON | WS_TABSTOP,
     .area = {46, 30, 50, 14},
     .id = IDOK},
};

} // namespace

void OpenAboutDialog() {
    RunModalDialog(DialogOwner(), {.name = "About",
                                   .caption = "About Ghosthand Sample Host",
                                   .style = kModalFrameStyle,
                                   .area = {80, 60, 166, 52},
                                   .controls = kAboutControls});
}

void OpenLateDialog() {
    RunModalDialog(DialogOwner(), {.name = "Late",
                                   .caption = "Late",
                                   .style = kModalFrameStyle,
                                   .area = {90, 70, 142, 52},
                                   .controls = kLateControls});
}

} // namespace sample_host
