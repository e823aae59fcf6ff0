// Tab controls with one row and with several, and one with texts that are longer than a driver's buffer.
#include "control.h"
#include "host_ids.h"
#include "item_menu.h"
#include "mdi_page.h"

#include <commctrl.h>
#include <string>
#include <windowsx.h>

namespace sample_host {
namespace {

void AddTab(HWND tabs, std::string text) {
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    item.pszText = text.data();
    SendMessageA(tabs, TCM_INSERTITEMA, static_cast<WPARAM>(TabCtrl_GetItemCount(tabs)),
                 reinterpret_cast<LPARAM>(&item));
}

HWND AddTabs(HWND page, DWORD style, Area area, int id) {
    return AddControl(page,
                      {.className = WC_TABCONTROLA, .style = style | WS_TABSTOP, .area = area, .id = id});
}

void Build(HWND page) {
    const HWND row = AddTabs(page, 0, {10, 10, 460, 70}, ids::kTabs);
    for (const char* text : {"General", "Geometry, all", "Geometry", "R&D",
                             "Gr\xF6\xDF"
                             "e",
                             "Notes\tmore"})
        AddTab(row, text);
    const HWND rows = AddTabs(page, TCS_MULTILINE, {10, 90, 460, 130}, ids::kTabRows);
    for (int number = 1; number <= 20; ++number)
        AddTab(rows, "Layer " + std::to_string(number));
    const HWND longTexts = AddTabs(page, TCS_FIXEDWIDTH, {10, 230, 460, 60}, ids::kLongTabs);
    for (const std::size_t length : {1022, 1023, 1024, 5000})
        AddTab(longTexts, std::string(length, 'x'));
    AddControl(page,
               {.className = "Static", .style = SS_NOPREFIX, .area = {10, 300, 460, 18}, .id = ids::kLabel});
}

std::string TabText(HWND tabs, int index) {
    char text[100] = "";
    TCITEMA item{};
    item.mask = TCIF_TEXT;
    item.pszText = text;
    item.cchTextMax = sizeof text;
    SendMessageA(tabs, TCM_GETITEMA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&item));
    return text;
}

void OpenMenu(HWND tabs, POINT position) {
    TCHITTESTINFO hit{position, 0};
    ScreenToClient(tabs, &hit.pt);
    const int index = TabCtrl_HitTest(tabs, &hit);
    OpenItemMenu(position, index >= 0 ? TabText(tabs, index) : "");
}

bool Handle(HWND page, UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    if (message == WM_CONTEXTMENU) {
        OpenMenu(reinterpret_cast<HWND>(wParam), {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
        return true;
    }
    if (message == WM_NOTIFY) {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        if (header.code == static_cast<UINT>(TCN_SELCHANGE)) {
            const std::string text = "Shown: " + TabText(header.hwndFrom, TabCtrl_GetCurSel(header.hwndFrom));
            SetDlgItemTextA(page, ids::kLabel, text.c_str());
        }
    }
    return false;
}

} // namespace

void OpenTabsPage() {
    OpenMdiPage(
        {.name = "Tabs", .caption = "Tabs", .width = 500, .height = 360, .build = Build, .handler = Handle});
}

} // namespace sample_host
