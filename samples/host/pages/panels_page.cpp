// Child windows with captions, one inside another.
#include "control.h"
#include "host_ids.h"
#include "mdi_page.h"

namespace sample_host {
namespace {

void Build(HWND page) {
    const HWND left = AddPanel(page, {.className = "",
                                      .text = "Left panel",
                                      .style = WS_CAPTION,
                                      .area = {10, 10, 230, 200},
                                      .id = ids::kPanelLeft});
    AddControl(left,
               {.className = "Static", .text = "Thickness", .area = {10, 12, 80, 18}, .id = ids::kLabel});
    AddControl(left, {.className = "Edit",
                      .text = "4.5",
                      .style = WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
                      .area = {100, 10, 110, 22},
                      .id = ids::kEdit});
    const HWND right = AddPanel(page, {.className = "",
                                       .text = "Right panel",
                                       .style = WS_CAPTION,
                                       .area = {250, 10, 300, 200},
                                       .id = ids::kPanelRight});
    const HWND inner = AddPanel(right, {.className = "",
                                        .text = "Inner panel",
                                        .style = WS_CAPTION,
                                        .area = {10, 10, 270, 140},
                                        .id = ids::kPanelInner});
    AddControl(inner, {.className = "Button",
                       .text = "&Apply",
                       .style = WS_TABSTOP,
                       .area = {10, 10, 90, 26},
                       .id = ids::kApply});
    AddControl(inner, {.className = "Edit",
                       .text = "inner",
                       .style = WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
                       .area = {10, 46, 150, 22},
                       .id = ids::kEdit});
}

} // namespace

void OpenPanelsPage() {
    OpenMdiPage({.name = "Panels", .caption = "Panels", .width = 580, .height = 260, .build = Build});
}

} // namespace sample_host
