// A horizontal and a vertical track bar.
#include "control.h"
#include "host_ids.h"
#include "mdi_page.h"

#include <commctrl.h>
#include <string>

namespace sample_host {
namespace {

void AddTrackBar(HWND page, DWORD style, Area area, int id, int low, int high) {
    const HWND bar = AddControl(
        page,
        {.className = TRACKBAR_CLASSA, .style = style | TBS_AUTOTICKS | WS_TABSTOP, .area = area, .id = id});
    SendMessageA(bar, TBM_SETRANGEMIN, FALSE, low);
    SendMessageA(bar, TBM_SETRANGEMAX, TRUE, high);
    SendMessageA(bar, TBM_SETTICFREQ, 10, 0);
}

void Build(HWND page) {
    AddTrackBar(page, TBS_HORZ, {10, 10, 300, 40}, ids::kHorizontalBar, 0, 100);
    AddTrackBar(page, TBS_VERT, {330, 10, 50, 200}, ids::kVerticalBar, -50, 50);
    AddControl(page, {.className = "Static", .area = {10, 70, 300, 18}, .id = ids::kLabel});
}

bool Handle(HWND page, UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    if ((message == WM_HSCROLL || message == WM_VSCROLL) && LOWORD(wParam) == TB_ENDTRACK) {
        const auto bar = reinterpret_cast<HWND>(lParam);
        const std::string text = (message == WM_HSCROLL ? "Horizontal bar at " : "Vertical bar at ") +
                                 std::to_string(SendMessageA(bar, TBM_GETPOS, 0, 0));
        SetDlgItemTextA(page, ids::kLabel, text.c_str());
    }
    return false;
}

} // namespace

void OpenTrackBarsPage() {
    OpenMdiPage({.name = "Track bars",
                 .caption = "Track bars",
                 .width = 410,
                 .height = 270,
                 .build = Build,
                 .handler = Handle});
}

} // namespace sample_host
