#include "tool_bars.h"

#include "bar_window.h"
#include "control.h"
#include "frame.h"
#include "host_ids.h"

#include <commctrl.h>
#include <iterator>

namespace sample_host {
namespace {

HWND standardBar = nullptr;
HWND drawBar = nullptr;
HWND modifyBar = nullptr;

// String index 0 would read as "no text".
constexpr char kStrings[] = "Unused\0New\0Print\0Measure\0";
enum StringIndex : INT_PTR { kNoString = 0, kNew = 1, kPrint = 2, kMeasure = 3 };

constexpr TBBUTTON Button(int image, unsigned command, INT_PTR string = kNoString, BYTE style = BTNS_BUTTON,
                          BYTE state = TBSTATE_ENABLED) {
    return {image, static_cast<int>(command), state, static_cast<BYTE>(style | BTNS_AUTOSIZE), {}, 0, string};
}
constexpr TBBUTTON kSeparator{8, 0, 0, BTNS_SEP, {}, 0, 0};

void SetButtonText(unsigned command, const char* text) {
    TBBUTTONINFOA info{};
    info.cbSize = sizeof info;
    info.dwMask = TBIF_TEXT;
    info.pszText = const_cast<char*>(text); // only read
    SendMessageA(standardBar, TB_SETBUTTONINFOA, command, reinterpret_cast<LPARAM>(&info));
}

void CreateStandardBar(HWND frame) {
    standardBar = AddControl(frame, {.className = TOOLBARCLASSNAMEA,
                                     .text = "Standard",
                                     .style = TBSTYLE_FLAT | TBSTYLE_LIST | CCS_NODIVIDER | CCS_NOPARENTALIGN,
                                     .id = ids::kStandardBar});
    SendMessageA(standardBar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    SendMessageA(standardBar, TB_SETEXTENDEDSTYLE, 0, TBSTYLE_EX_DRAWDDARROWS);
    const TBADDBITMAP images{HINST_COMMCTRL, IDB_STD_SMALL_COLOR};
    SendMessageA(standardBar, TB_ADDBITMAP, 0, reinterpret_cast<LPARAM>(&images));
    SendMessageA(standardBar, TB_ADDSTRINGA, 0, reinterpret_cast<LPARAM>(kStrings));
    const TBBUTTON buttons[] = {
        Button(STD_FILENEW, ids::kFileNew, kNew),
        Button(STD_FILEOPEN, ids::kFileOpen, kNoString, BTNS_DROPDOWN),
        kSeparator,
        Button(STD_FILESAVE, ids::kFileSave),
        Button(STD_PRINT, ids::kFilePrint, kPrint, BTNS_BUTTON, 0),
        kSeparator,
        Button(I_IMAGENONE, ids::kViewGrid, kNoString, BTNS_CHECK),
        kSeparator,
        Button(STD_PROPERTIES, 0, kMeasure),
    };
    SendMessageA(standardBar, TB_ADDBUTTONSA, std::size(buttons), reinterpret_cast<LPARAM>(buttons));
    SetButtonText(ids::kFileOpen, "Open");
    SetButtonText(ids::kFileSave, "Save");
    SetButtonText(ids::kViewGrid, "Grid");
    SendMessageA(standardBar, TB_AUTOSIZE, 0, 0);
}

void OpenRecentFiles(RECT button) {
    MapWindowPoints(standardBar, nullptr, reinterpret_cast<POINT*>(&button), 2);
    const HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING, ids::kFileRecent1, "&1 Bracket.part");
    AppendMenuA(menu, MF_STRING, ids::kFileRecent2, "&2 Housing.part");
    TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_TOPALIGN, button.left, button.bottom, 0, Frame(), nullptr);
    DestroyMenu(menu);
}

SIZE SizeOfStandardBar() {
    SIZE size{};
    SendMessageA(standardBar, TB_GETMAXSIZE, 0, reinterpret_cast<LPARAM>(&size));
    return size;
}

} // namespace

void CreateToolBars(HWND frame) {
    CreateStandardBar(frame);
    drawBar = CreateBar(
        frame,
        {.className = "BCGPToolBar:sample",
         .caption = "Draw",
         .buttons = {{.command = ids::kDrawLine, .text = "Line"},
                     {.command = ids::kDrawCircle, .text = "Circle", .textByIndex = true},
                     {},
                     {.command = ids::kDrawSpline, .text = "Spline", .disabled = true},
                     {.command = ids::kDrawOrtho, .text = "Ortho", .checkable = true},
                     {.command = ids::kDrawArc,
                      .text = "Arc",
                      .submenu = {{.command = ids::kDrawArcCenter, .text = "Center"},
                                  {.command = ids::kDrawArcTangent, .text = "Tangent", .textByIndex = true},
                                  {},
                                  {.command = ids::kDrawOrtho, .text = "Ortho", .checkable = true}},
                      .submenuKind = PopupKind::Professional}},
         .id = ids::kDrawBar});
    modifyBar = CreateBar(
        frame, {.className = "BCGToolBar:sample",
                .caption = "Modify",
                .buttons = {{.command = ids::kDrawErase, .text = "Erase All"},
                            {.command = ids::kDrawSnap, .text = "Snap", .checkable = true, .checked = true},
                            {},
                            {.command = ids::kDrawHatch,
                             .text = "Hatch",
                             .submenu = {{.command = ids::kDrawHatchLines, .text = "Lines"},
                                         {.command = ids::kDrawHatchDots, .text = "Dots", .checkable = true},
                                         {.command = ids::kDrawSpline, .text = "Spline", .disabled = true}}}},
                .id = ids::kModifyBar});
}

void ShowToolBars(bool show) {
    for (const HWND bar : {standardBar, drawBar, modifyBar})
        ShowWindow(bar, show ? SW_SHOW : SW_HIDE);
}

int LayOutToolBars(int width) {
    if (!(GetWindowLongPtrA(standardBar, GWL_STYLE) & WS_VISIBLE))
        return 0;
    constexpr int kGap = 4; // pixels
    const SIZE standard = SizeOfStandardBar();
    const int standardHeight = standard.cy + kGap;
    MoveWindow(standardBar, 0, 0, width, standardHeight, TRUE);
    const SIZE draw = NaturalSize(drawBar);
    const SIZE modify = NaturalSize(modifyBar);
    MoveWindow(drawBar, 0, standardHeight, draw.cx, draw.cy, TRUE);
    MoveWindow(modifyBar, draw.cx + kGap, standardHeight, modify.cx, modify.cy, TRUE);
    return standardHeight + draw.cy;
}

void MarkToolBarButton(unsigned command, bool marked) {
    SendMessageA(standardBar, TB_CHECKBUTTON, command, MAKELPARAM(marked, 0));
}

bool OnToolBarNotify(const NMHDR& header, LRESULT& result) {
    if (header.hwndFrom != standardBar || header.code != static_cast<UINT>(TBN_DROPDOWN))
        return false;
    OpenRecentFiles(reinterpret_cast<const NMTOOLBARA&>(header).rcButton);
    result = TBDDRET_DEFAULT;
    return true;
}

} // namespace sample_host
