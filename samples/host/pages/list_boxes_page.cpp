// List boxes with single, multiple and extended selection, and one that keeps no strings.
#include "control.h"
#include "host_ids.h"
#include "item_menu.h"
#include "mdi_page.h"
#include "owner_drawn.h"

#include <iterator>
#include <string>
#include <windowsx.h>

namespace sample_host {
namespace {

constexpr const char* kMaterials[] = {"Aluminium",
                                      "Brass",
                                      "Copper, rolled",
                                      "Copper",
                                      "R&D sample",
                                      "Glass\tclear",
                                      "\334berzug", // "Ueberzug" with its umlaut in the code page
                                      "Nickel",
                                      "Steel",
                                      "Titanium",
                                      "Zinc"};

bool IsOwnerDrawn(HWND list) {
    return GetDlgCtrlID(list) == static_cast<int>(ids::kOwnerDrawnList);
}

std::string ItemText(HWND list, int index) {
    if (IsOwnerDrawn(list))
        return kMaterials[ListBox_GetItemData(list, index)];
    std::string text(static_cast<std::size_t>(ListBox_GetTextLen(list, index)), '\0');
    ListBox_GetText(list, index, text.data());
    return text;
}

void AddList(HWND page, const char* caption, DWORD style, int id, int x, int height) {
    AddControl(page, {.className = "Static", .text = caption, .area = {x, 10, 150, 18}});
    const HWND list = AddControl(
        page, {.className = "ListBox",
               .style = style | WS_BORDER | WS_VSCROLL | WS_TABSTOP | LBS_NOTIFY | LBS_NOINTEGRALHEIGHT,
               .area = {x, 30, 150, height},
               .id = id});
    for (int index = 0; index < static_cast<int>(std::size(kMaterials)); ++index) {
        if (IsOwnerDrawn(list))
            SendMessageA(list, LB_ADDSTRING, 0, index); // the item's data, as there are no strings
        else
            ListBox_AddString(list, kMaterials[index]);
    }
    // A name outside of every code page of the west.
    SendMessageW(list, LB_ADDSTRING, 0,
                 IsOwnerDrawn(list) ? 0 : reinterpret_cast<LPARAM>(L"\x039A\x03B1 alloy"));
}

void Build(HWND page) {
    AddList(page, "Single", 0, ids::kListBox, 10, 220);
    AddList(page, "Multiple", LBS_MULTIPLESEL, ids::kMultipleList, 170, 120);
    AddList(page, "Extended", LBS_EXTENDEDSEL, ids::kExtendedList, 330, 120);
    AddList(page, "Without strings", LBS_OWNERDRAWFIXED, ids::kOwnerDrawnList, 490, 120);
}

void OpenMenu(HWND list, POINT position) {
    POINT point = position;
    ScreenToClient(list, &point);
    const LRESULT hit = SendMessageA(list, LB_ITEMFROMPOINT, 0, MAKELPARAM(point.x, point.y));
    RECT area{};
    ListBox_GetItemRect(list, LOWORD(hit), &area);
    OpenItemMenu(position, PtInRect(&area, point) ? ItemText(list, LOWORD(hit)) : "");
}

bool Handle(HWND, UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    switch (message) {
    case WM_CONTEXTMENU:
        OpenMenu(reinterpret_cast<HWND>(wParam), {GET_X_LPARAM(lParam), GET_Y_LPARAM(lParam)});
        return true;
    case WM_MEASUREITEM:
        MeasureItemText(*reinterpret_cast<MEASUREITEMSTRUCT*>(lParam));
        return true;
    case WM_DRAWITEM: {
        const auto& item = *reinterpret_cast<const DRAWITEMSTRUCT*>(lParam);
        if (item.itemID != static_cast<UINT>(-1))
            DrawItemText(item, kMaterials[item.itemData]);
        return true;
    }
    default:
        return false;
    }
}

} // namespace

void OpenListBoxesPage() {
    OpenMdiPage({.name = "List boxes",
                 .caption = "List boxes",
                 .width = 670,
                 .height = 300,
                 .build = Build,
                 .handler = Handle});
}

} // namespace sample_host
