#include "owner_drawn.h"

namespace sample_host {

void DrawItemText(const DRAWITEMSTRUCT& item, const char* text) {
    const bool selected = (item.itemState & ODS_SELECTED) != 0;
    FillRect(item.hDC, &item.rcItem, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
    SetTextColor(item.hDC, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
    SetBkMode(item.hDC, TRANSPARENT);
    RECT area = item.rcItem;
    area.left += 4;
    DrawTextA(item.hDC, text, -1, &area, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
}

void MeasureItemText(MEASUREITEMSTRUCT& item) {
    item.itemHeight = 18;
}

} // namespace sample_host
