#include "menu_bar.h"

#include "host_ids.h"
#include "page_table.h"

#include <iterator>
#include <span>

namespace sample_host {
namespace {

// One item; one without text is a separator. Items with a submenu have no command.
struct Item {
    unsigned command = 0;
    const char* text = nullptr;
    UINT flags = 0;
    const Item* submenu = nullptr;
    std::size_t submenuSize = 0;
};

constexpr Item kRecentFiles[] = {
    {ids::kFileRecent1, "&1 Bracket.part"},
    {ids::kFileRecent2, "&2 Housing.part"},
};
constexpr Item kFile[] = {
    {ids::kFileNew, "&New\tCtrl+N"},
    {ids::kFileOpen, "&Open...\tCtrl+O"},
    {ids::kFileSave, "&Save\tCtrl+S"},
    {ids::kFileSaveAs, "Save &As..."},
    {ids::kFileClose, "&Close"},
    {},
    {ids::kFilePrint, "&Print...\tCtrl+P", MF_GRAYED},
    {},
    {0, "Recent &Files", 0, kRecentFiles, std::size(kRecentFiles)},
    {},
    {ids::kFileExit, "E&xit"},
};
constexpr Item kEdit[] = {
    {ids::kEditUndo, "&Undo\tCtrl+Z", MF_GRAYED},
    {},
    {ids::kEditCut, "Cu&t\tCtrl+X"},
    {ids::kEditCopy, "&Copy\tCtrl+C"},
    {ids::kEditPaste, "&Paste\tCtrl+V"},
    {},
    {ids::kEditSelectAll, "Select &All\tCtrl+A"},
};
constexpr Item kFit[] = {
    {ids::kZoomFitWidth, "&Width"},
    {ids::kZoomFitPage, "&Page"},
};
constexpr Item kZoom[] = {
    {ids::kZoomHalf, "&50 %"},
    {ids::kZoomFull, "&100 %"},
    {ids::kZoomDouble, "&200 %"},
    {},
    {0, "&Fit", 0, kFit, std::size(kFit)},
};
constexpr Item kView[] = {
    {ids::kViewToolbar, "&Toolbar", MF_CHECKED},
    {ids::kViewStatusBar, "&Status Bar", MF_CHECKED},
    {ids::kViewGrid, "&Grid\tF7"},
    {ids::kViewSnap, "S&nap", MF_CHECKED | MF_GRAYED},
    {},
    {0, "&Zoom", 0, kZoom, std::size(kZoom)},
};
constexpr Item kWindow[] = {
    {ids::kWindowCascade, "&Cascade"},
    {ids::kWindowTileHorizontally, "Tile &Horizontally"},
    {ids::kWindowTileVertically, "Tile &Vertically"},
    {ids::kWindowArrange, "&Arrange Icons"},
};
constexpr Item kHelp[] = {
    {ids::kPageAbout, "&About Ghosthand Sample Host..."},
};

HMENU CreatePopup(std::span<const Item> items) {
    const HMENU menu = CreatePopupMenu();
    for (const Item& item : items) {
        if (!item.text)
            AppendMenuA(menu, MF_SEPARATOR, 0, nullptr);
        else if (item.submenu)
            AppendMenuA(menu, MF_POPUP | item.flags,
                        reinterpret_cast<UINT_PTR>(CreatePopup({item.submenu, item.submenuSize})), item.text);
        else
            AppendMenuA(menu, item.flags, item.command, item.text);
    }
    return menu;
}

HMENU CreatePagesPopup() {
    const HMENU menu = CreatePopupMenu();
    for (const Page& page : Pages())
        AppendMenuA(menu, MF_STRING, page.command, page.menuText);
    return menu;
}

} // namespace

HMENU CreateMenuBar() {
    const struct {
        const char* text;
        HMENU popup;
    } popups[] = {
        {"&File", CreatePopup(kFile)},  {"&Edit", CreatePopup(kEdit)},     {"&View", CreatePopup(kView)},
        {"&Pages", CreatePagesPopup()}, {"&Window", CreatePopup(kWindow)}, {"&Help", CreatePopup(kHelp)},
    };
    const HMENU bar = CreateMenu();
    for (const auto& [text, popup] : popups)
        AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), text);
    CheckMenuRadioItem(bar, ids::kZoomHalf, ids::kZoomDouble, ids::kZoomFull, MF_BYCOMMAND);
    return bar;
}

bool ToggleMark(HMENU menuBar, unsigned command) {
    if (command >= ids::kZoomHalf && command <= ids::kZoomDouble) {
        CheckMenuRadioItem(menuBar, ids::kZoomHalf, ids::kZoomDouble, command, MF_BYCOMMAND);
        return true;
    }
    if (command < ids::kViewToolbar || command > ids::kViewSnap)
        return false;
    const bool marked = GetMenuState(menuBar, command, MF_BYCOMMAND) & MF_CHECKED;
    CheckMenuItem(menuBar, command, MF_BYCOMMAND | (marked ? MF_UNCHECKED : MF_CHECKED));
    return !marked;
}

} // namespace sample_host
