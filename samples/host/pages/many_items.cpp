// Large bars, to measure how fast an item is found: a tool bar with 200 buttons whose last text is
// longer than drivers expect, and, in a window of its own, a menu with 500 items.
#include "control.h"
#include "host_ids.h"
#include "mdi_page.h"
#include "watch.h"

#include <commctrl.h>
#include <string>

namespace sample_host {
namespace {

constexpr int kButtons = 200;
constexpr int kItems = 500;
constexpr std::size_t kLongText = 1500; // bytes

void SetButtonText(HWND bar, int command, std::string text) {
    TBBUTTONINFOA info{};
    info.cbSize = sizeof info;
    info.dwMask = TBIF_TEXT;
    info.pszText = text.data();
    SendMessageA(bar, TB_SETBUTTONINFOA, static_cast<WPARAM>(command), reinterpret_cast<LPARAM>(&info));
}

void AddToolBar(HWND page) {
    const HWND bar = AddControl(
        page, {.className = TOOLBARCLASSNAMEA,
               .text = "Many buttons",
               .style = TBSTYLE_FLAT | TBSTYLE_LIST | CCS_NODIVIDER | CCS_NOPARENTALIGN | CCS_NORESIZE,
               .area = {0, 0, 560, 60},
               .id = ids::kManyButtonsBar});
    SendMessageA(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    for (int number = 0; number < kButtons; ++number) {
        const int command = static_cast<int>(ids::kFirstManyButton) + number;
        const TBBUTTON button{I_IMAGENONE, command, TBSTATE_ENABLED, BTNS_BUTTON | BTNS_AUTOSIZE, {}, 0, 0};
        SendMessageA(bar, TB_ADDBUTTONSA, 1, reinterpret_cast<LPARAM>(&button));
        SetButtonText(bar, command,
                      number + 1 == kButtons ? "Long " + std::string(kLongText - 5, 'x')
                                             : "Button " + std::to_string(number));
    }
}

void OpenMenuWindow() {
    if (FindWatched("Many items menu"))
        return;
    const HMENU popup = CreatePopupMenu();
    for (int number = 0; number < kItems; ++number)
        AppendMenuA(popup, MF_STRING, ids::kFirstManyItem + static_cast<UINT_PTR>(number),
                    ("Item " + std::to_string(number)).c_str());
    const HMENU bar = CreateMenu();
    AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), "&Items");
    RegisterHostClass("SampleHostMenuWindow", DefWindowProcA);
    const HWND window = CreateWindowExA(0, "SampleHostMenuWindow", "Many items menu", WS_OVERLAPPEDWINDOW, 80,
                                        80, 300, 120, nullptr, bar, Instance(), nullptr);
    Watch(window, "Many items menu");
    ShowWindow(window, SW_SHOWNA);
}

} // namespace

void OpenManyItemsPage() {
    OpenMdiPage(
        {.name = "Many items", .caption = "Many items", .width = 580, .height = 110, .build = AddToolBar});
    OpenMenuWindow();
}

} // namespace sample_host
