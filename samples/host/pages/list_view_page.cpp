// List views: report mode with three columns, check boxes, single selection in list mode, 10,000 items.
#include "bar_popup.h"
#include "control.h"
#include "host_ids.h"
#include "mdi_page.h"

#include <commctrl.h>
#include <string>

namespace sample_host {
namespace {

constexpr int kLargeItems = 10000;

// Whole rows can be clicked: in some systems a click on the left edge of a label hits no item otherwise.
HWND AddList(HWND page, int id, DWORD style, DWORD extendedStyle, const Area& area) {
    const HWND list = AddControl(page, {.className = WC_LISTVIEWA,
                                        .style = LVS_SHOWSELALWAYS | WS_BORDER | WS_TABSTOP | style,
                                        .area = area,
                                        .id = id});
    SendMessageA(list, LVM_SETEXTENDEDLISTVIEWSTYLE, 0, static_cast<LPARAM>(extendedStyle));
    return list;
}

void AddColumn(HWND list, int index, int width, std::string caption) {
    LVCOLUMNA column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH | LVCF_SUBITEM;
    column.cx = width;
    column.iSubItem = index;
    column.pszText = caption.data();
    SendMessageA(list, LVM_INSERTCOLUMNA, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(&column));
}

void SetCell(HWND list, int row, int column, std::string text) {
    LVITEMA item{};
    item.mask = LVIF_TEXT;
    item.iItem = row;
    item.iSubItem = column;
    item.pszText = text.data();
    SendMessageA(list, column == 0 ? LVM_INSERTITEMA : LVM_SETITEMA, 0, reinterpret_cast<LPARAM>(&item));
}

void AddPartsList(HWND page) {
    const HWND list = AddList(page, ids::kPartsList, LVS_REPORT, LVS_EX_FULLROWSELECT, {10, 10, 270, 240});
    AddColumn(list, 0, 90, "Part");
    AddColumn(list, 1, 90, "Material");
    AddColumn(list, 2, 60, "Mass");
    static constexpr const char* kParts[][3] = {{"Base plate", "Steel", "4.2"},
                                                {"Bearing", "Brass", "0.3"},
                                                {"Bearing cap", "Brass", "0.1"},
                                                {"Tr\xE4ger", "Aluminium", "2.5"},
                                                {"bearing, spare", "Brass", "0.3"}};
    int row = 0;
    for (const auto& [part, material, mass] : kParts) {
        SetCell(list, row, 0, part);
        SetCell(list, row, 1, material);
        SetCell(list, row, 2, mass);
        ++row;
    }
    for (const std::size_t length : {1022, 1023, 1024, 5000})
        SetCell(list, row++, 0, std::to_string(length) + std::string(length - 4, 'x'));
    for (; row < 40; ++row) // more than are in view
        SetCell(list, row, 0, "Screw " + std::to_string(row));
}

void AddLayersList(HWND page) {
    const HWND list = AddList(page, ids::kLayersList, LVS_REPORT, LVS_EX_FULLROWSELECT | LVS_EX_CHECKBOXES,
                              {290, 10, 180, 240});
    AddColumn(list, 0, 150, "Layer");
    int row = 0;
    for (const char* layer : {"Sketch", "Layer 1", "Layer 10", "Lay", "Dimensions"})
        SetCell(list, row++, 0, layer);
}

void AddSingleList(HWND page) {
    const HWND list = AddList(page, ids::kSingleList, LVS_LIST | LVS_SINGLESEL, 0, {480, 10, 150, 240});
    int row = 0;
    for (const char* view : {"Front", "Top", "Left", "Isometric"})
        SetCell(list, row++, 0, view);
}

void AddLargeList(HWND page) {
    const HWND list = AddList(page, ids::kLargeList, LVS_REPORT, LVS_EX_FULLROWSELECT, {640, 10, 180, 240});
    AddColumn(list, 0, 150, "Item");
    SendMessageA(list, LVM_SETITEMCOUNT, kLargeItems, 0);
    SendMessageA(list, WM_SETREDRAW, FALSE, 0);
    for (int number = 0; number < kLargeItems; ++number)
        SetCell(list, number, 0, "Item " + std::to_string(number));
    SendMessageA(list, WM_SETREDRAW, TRUE, 0);
}

void Build(HWND page) {
    AddPartsList(page);
    AddLayersList(page);
    AddSingleList(page);
    AddLargeList(page);
}

// What the right click hit decides which of the two menus opens.
void OpenMenu(HWND list, POINT position) {
    LVHITTESTINFO hit{};
    hit.pt = position;
    ScreenToClient(list, &hit.pt);
    const auto item = static_cast<int>(SendMessageA(list, LVM_HITTEST, 0, reinterpret_cast<LPARAM>(&hit)));
    const BarButton entry =
        item < 0 ? BarButton{.command = ids::kListAddItem, .text = "Add item"}
                 : BarButton{.command = ids::kListOpen, .text = "Open " + std::to_string(item)};
    OpenBarPopup(PopupKind::Plain, position, {entry}, nullptr);
}

bool Handle(HWND, UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    if (message != WM_CONTEXTMENU)
        return false;
    OpenMenu(reinterpret_cast<HWND>(wParam),
             {static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))});
    return true;
}

} // namespace

void OpenListViewsPage() {
    OpenMdiPage({.name = "List views",
                 .caption = "List views",
                 .width = 850,
                 .height = 300,
                 .build = Build,
                 .handler = Handle});
}

} // namespace sample_host
