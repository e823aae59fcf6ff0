// Three areas, each with a context menu of another kind.
#include "bar_popup.h"
#include "control.h"
#include "frame.h"
#include "host_ids.h"
#include "mdi_page.h"

namespace sample_host {
namespace {

bool isSnapMarked = false; // of the system menu

std::vector<BarButton> Entries(PopupKind submenuKind) {
    return {{.command = ids::kDrawLine, .text = "Line"},
            {.command = ids::kDrawCircle, .text = "Circle", .textByIndex = true},
            {},
            {.command = ids::kDrawSpline, .text = "Spline", .disabled = true},
            {.command = ids::kDrawSnap, .text = "Snap", .checkable = true, .checked = true},
            {.command = ids::kDrawHatch,
             .text = "Hatch",
             .submenu = {{.command = ids::kDrawHatchLines, .text = "Lines"},
                         {.command = ids::kDrawHatchDots, .text = "Dots", .checkable = true}},
             .submenuKind = submenuKind},
            {.command = ids::kDrawErase, .text = "Erase All"}};
}

void OpenSystemMenu(HWND page, POINT position) {
    const HMENU order = CreatePopupMenu();
    AppendMenuA(order, MF_STRING, ids::kContextOrderFront, "To &Front");
    AppendMenuA(order, MF_STRING, ids::kContextOrderBack, "To &Back");
    const HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING, ids::kContextCopy, "&Copy");
    AppendMenuA(menu, MF_STRING | MF_GRAYED, ids::kContextPaste, "&Paste");
    AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
    AppendMenuA(menu, MF_STRING | (isSnapMarked ? MF_CHECKED : 0), ids::kContextSnap, "&Snap");
    AppendMenuA(menu, MF_POPUP, reinterpret_cast<UINT_PTR>(order), "&Order");
    TrackPopupMenu(menu, TPM_RIGHTBUTTON, position.x, position.y, 0, page, nullptr);
    DestroyMenu(menu); // and its submenu
}

void OpenMenu(HWND page, HWND area, POINT position) {
    switch (GetDlgCtrlID(area)) {
    case ids::kOwnMenuArea:
        OpenBarPopup(PopupKind::Plain, position, Entries(PopupKind::Plain), nullptr);
        break;
    case ids::kProfessionalMenuArea:
        OpenBarPopup(PopupKind::Professional, position, Entries(PopupKind::Professional), nullptr);
        break;
    case ids::kSystemMenuArea:
        OpenSystemMenu(page, position);
        break;
    default:
        break;
    }
}

bool Handle(HWND page, UINT message, WPARAM wParam, LPARAM lParam, LRESULT&) {
    if (message == WM_CONTEXTMENU) {
        const POINT position{static_cast<short>(LOWORD(lParam)), static_cast<short>(HIWORD(lParam))};
        OpenMenu(page, reinterpret_cast<HWND>(wParam), position);
        return true;
    }
    if (message == WM_COMMAND && LOWORD(wParam) == ids::kContextSnap) {
        isSnapMarked = !isSnapMarked;
        return true;
    }
    return false;
}

void AddArea(HWND page, const char* caption, int id, int x) {
    const HWND area = AddPanel(page, {.className = "",
                                      .text = caption,
                                      .style = WS_BORDER,
                                      .exStyle = WS_EX_CLIENTEDGE,
                                      .area = {x, 10, 150, 120},
                                      .id = id});
    AddControl(area, {.className = "Static",
                      .text = caption,
                      .style = SS_CENTER,
                      .area = {5, 90, 135, 18},
                      .id = ids::kLabel});
}

void Build(HWND page) {
    AddArea(page, "Own menu", ids::kOwnMenuArea, 10);
    AddArea(page, "Professional menu", ids::kProfessionalMenuArea, 170);
    AddArea(page, "System menu", ids::kSystemMenuArea, 330);
}

} // namespace

void OpenContextMenusPage() {
    OpenMdiPage({.name = "Context menus",
                 .caption = "Context menus",
                 .width = 510,
                 .height = 190,
                 .build = Build,
                 .handler = Handle});
}

} // namespace sample_host
