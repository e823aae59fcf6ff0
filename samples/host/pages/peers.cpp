// A window of its own with what is measured of several tools that drive programs: a menu bar, a tool bar, a
// list view and trees with many items, a dialog with ten controls, and a command whose dialog and whose
// result come late. What really happened goes to the journal.
#include "control.h"
#include "dialog.h"
#include "host_ids.h"
#include "journal.h"
#include "tree_items.h"
#include "watch.h"

#include <commctrl.h>
#include <iterator>
#include <random>
#include <string>

namespace sample_host {
namespace {

constexpr int kMenus = 5;
constexpr int kItemsPerMenu = 10;
constexpr int kButtons = 50;
constexpr int kItems = 1000;
constexpr int kBranches = 10;
constexpr int kLeaves = 100;      // on each branch of each branch: 10,000
constexpr unsigned kLatest = 150; // milliseconds

enum Timer : UINT_PTR { kQuestionTimer = 1, kResultTimer = 2, kReadyTimer = 3 };

int round = 0;
std::string answer;
// The same sequence in each run.
std::minstd_rand numbers{1};

void StartTimer(HWND window, UINT_PTR timer) {
    SetTimer(window, timer, static_cast<UINT>(numbers() % (kLatest + 1)), nullptr);
}

std::string TextOf(HWND parent, int control) {
    char text[200] = "";
    GetDlgItemTextA(parent, control, text, static_cast<int>(std::size(text)));
    return text;
}

HMENU CreateMenus() {
    const HMENU bar = CreateMenu();
    for (int menu = 0; menu < kMenus; ++menu) {
        const HMENU popup = CreatePopupMenu();
        for (int item = 0; item < kItemsPerMenu; ++item) {
            const int number = menu * kItemsPerMenu + item;
            AppendMenuA(popup, MF_STRING, ids::kFirstPeersCommand + static_cast<UINT_PTR>(number),
                        ("Command " + std::to_string(number)).c_str());
        }
        AppendMenuA(bar, MF_POPUP, reinterpret_cast<UINT_PTR>(popup),
                    ("Menu " + std::to_string(menu)).c_str());
    }
    return bar;
}

std::string PathOf(HWND tree, HTREEITEM item) {
    std::string path;
    while (item) {
        if (!path.empty())
            path.insert(0, 1, '|');
        path.insert(0, TreeItemText(tree, item));
        item = reinterpret_cast<HTREEITEM>(
            SendMessageA(tree, TVM_GETNEXTITEM, TVGN_PARENT, reinterpret_cast<LPARAM>(item)));
    }
    return path;
}

void AddToolBar(HWND window) {
    const HWND bar = AddControl(window, {.className = TOOLBARCLASSNAMEA,
                                         .text = "Tools",
                                         .style = TBSTYLE_FLAT | TBSTYLE_LIST | TBSTYLE_WRAPABLE |
                                                  CCS_NODIVIDER | CCS_NOPARENTALIGN | CCS_NORESIZE,
                                         .area = {0, 0, 860, 130},
                                         .id = ids::kPeersBar});
    SendMessageA(bar, TB_BUTTONSTRUCTSIZE, sizeof(TBBUTTON), 0);
    for (int number = 0; number < kButtons; ++number) {
        const int command = static_cast<int>(ids::kFirstPeersTool) + number;
        const TBBUTTON button{I_IMAGENONE, command, TBSTATE_ENABLED, BTNS_BUTTON | BTNS_AUTOSIZE, {}, 0, 0};
        SendMessageA(bar, TB_ADDBUTTONSA, 1, reinterpret_cast<LPARAM>(&button));
        std::string text = "Tool " + std::to_string(number);
        TBBUTTONINFOA info{};
        info.cbSize = sizeof info;
        info.dwMask = TBIF_TEXT;
        info.pszText = text.data();
        SendMessageA(bar, TB_SETBUTTONINFOA, static_cast<WPARAM>(command), reinterpret_cast<LPARAM>(&info));
    }
    SendMessageA(bar, TB_SETROWS, MAKEWPARAM(5, TRUE), 0);
}

HWND AddTree(HWND window, int id, const Area& area) {
    return AddControl(window, {.className = WC_TREEVIEWA,
                               .style = TVS_HASLINES | TVS_LINESATROOT | TVS_HASBUTTONS | TVS_SHOWSELALWAYS |
                                        WS_BORDER | WS_TABSTOP,
                               .area = area,
                               .id = id});
}

void AddTrees(HWND window) {
    const HWND flat = AddTree(window, ids::kPeersTree, {270, 140, 250, 300});
    for (int number = 0; number < kItems; ++number)
        AddTreeItem(flat, TVI_ROOT, "Node " + std::to_string(number));
    const HWND deep = AddTree(window, ids::kPeersDeepTree, {530, 140, 320, 300});
    for (int assembly = 0; assembly < kBranches; ++assembly) {
        const HTREEITEM first = AddTreeItem(deep, TVI_ROOT, "Assembly " + std::to_string(assembly));
        for (int part = 0; part < kBranches; ++part) {
            const HTREEITEM second = AddTreeItem(deep, first, "Part " + std::to_string(part));
            for (int feature = 0; feature < kLeaves; ++feature)
                AddTreeItem(deep, second, "Feature " + std::to_string(feature));
        }
    }
}

void AddList(HWND window) {
    const HWND list = AddControl(window, {.className = WC_LISTVIEWA,
                                          .style = LVS_REPORT | LVS_SHOWSELALWAYS | WS_BORDER | WS_TABSTOP,
                                          .area = {10, 140, 250, 300},
                                          .id = ids::kPeersList});
    char caption[] = "Name";
    LVCOLUMNA column{};
    column.mask = LVCF_TEXT | LVCF_WIDTH;
    column.pszText = caption;
    column.cx = 200;
    SendMessageA(list, LVM_INSERTCOLUMNA, 0, reinterpret_cast<LPARAM>(&column));
    for (int number = 0; number < kItems; ++number) {
        std::string text = "Row " + std::to_string(number);
        LVITEMA item{};
        item.mask = LVIF_TEXT;
        item.iItem = number;
        item.pszText = text.data();
        SendMessageA(list, LVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&item));
    }
}

constexpr ControlSpec kQuestionControls[] = {
    {.className = "Edit",
     .style = WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
     .area = {8, 8, 120, 13},
     .id = ids::kEdit},
    {.className = "Button",
     .text = "OK",
     .style = BS_DEFPUSHBUTTON | WS_TABSTOP,
     .area = {8, 30, 50, 14},
     .id = IDOK},
    {.className = "Button", .text = "Cancel", .style = WS_TABSTOP, .area = {64, 30, 50, 14}, .id = IDCANCEL},
};

bool AnswerQuestion(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_COMMAND && LOWORD(wParam) == IDOK)
        answer = TextOf(dialog, ids::kEdit);
    return false;
}

void AskQuestion(HWND window) {
    answer = "(cancelled)";
    RunModalDialog(window, {.name = "Question",
                            .caption = "Question",
                            .style = kModalFrameStyle,
                            .area = {40, 30, 140, 52},
                            .controls = kQuestionControls,
                            .handler = AnswerQuestion});
    StartTimer(window, kResultTimer);
}

constexpr ControlSpec Field(int number, short y) {
    return {.className = "Edit",
            .style = WS_BORDER | WS_TABSTOP | ES_AUTOHSCROLL,
            .area = {8, y, 120, 13},
            .id = static_cast<int>(ids::kFirstPeersField) + number};
}

constexpr ControlSpec Choice(const char* className, const char* text, DWORD style, int number, Area area) {
    return {.className = className,
            .text = text,
            .style = style | WS_TABSTOP,
            .area = area,
            .id = static_cast<int>(ids::kFirstPeersField) + number};
}

constexpr ControlSpec kFormControls[] = {
    Field(0, 8),
    Field(1, 26),
    Field(2, 44),
    Field(3, 62),
    Choice("Button", "&Visible", BS_AUTOCHECKBOX, 4, {140, 8, 80, 11}),
    Choice("Button", "&Locked", BS_AUTOCHECKBOX, 5, {140, 24, 80, 11}),
    Choice("Button", "&Metric", BS_AUTORADIOBUTTON | WS_GROUP, 10, {140, 40, 40, 11}),
    Choice("Button", "&Imperial", BS_AUTORADIOBUTTON, 6, {184, 40, 44, 11}),
    Choice("ComboBox", "", CBS_DROPDOWNLIST | WS_VSCROLL | WS_GROUP, 7, {8, 84, 100, 80}),
    Choice("ComboBox", "", CBS_DROPDOWNLIST | WS_VSCROLL, 8, {120, 84, 100, 80}),
    Choice("ListBox", "", WS_BORDER | LBS_NOTIFY | WS_VSCROLL, 9, {8, 104, 120, 50}),
    {.className = "Button",
     .text = "OK",
     .style = BS_DEFPUSHBUTTON | WS_TABSTOP,
     .area = {140, 120, 50, 14},
     .id = IDOK},
};

// The values in the order of the controls' numbers.
std::string Values(HWND dialog) {
    std::string line = "form";
    for (int number = 0; number < 10; ++number) {
        const int id = static_cast<int>(ids::kFirstPeersField) + number;
        LRESULT value = 0;
        if (number < 4) {
            line.append(1, '|').append(TextOf(dialog, id));
            continue;
        }
        if (number < 7)
            value = SendDlgItemMessageA(dialog, id, BM_GETCHECK, 0, 0);
        else
            value = SendDlgItemMessageA(dialog, id, number < 9 ? CB_GETCURSEL : LB_GETCURSEL, 0, 0);
        line.append(1, '|').append(std::to_string(value));
    }
    return line;
}

bool HandleForm(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_INITDIALOG) {
        for (const char* material : {"Aluminium", "Brass", "Copper", "Steel", "Titanium"})
            for (const int number : {7, 8, 9})
                SendDlgItemMessageA(dialog, static_cast<int>(ids::kFirstPeersField) + number,
                                    number < 9 ? CB_ADDSTRING : LB_ADDSTRING, 0,
                                    reinterpret_cast<LPARAM>(material));
    } else if (message == WM_COMMAND && LOWORD(wParam) == IDOK) {
        Note(Values(dialog));
    }
    return false;
}

void OpenForm(HWND window) {
    RunModalDialog(window, {.name = "Form",
                            .caption = "Form",
                            .style = kModalFrameStyle,
                            .area = {40, 30, 232, 160},
                            .controls = kFormControls,
                            .handler = HandleForm});
}

void OnCommand(HWND window, unsigned command) {
    if (command >= ids::kFirstPeersCommand && command < ids::kFirstPeersCommand + kMenus * kItemsPerMenu) {
        Note("command " + std::to_string(command - ids::kFirstPeersCommand));
    } else if (command >= ids::kFirstPeersTool && command < ids::kFirstPeersTool + kButtons) {
        Note("tool " + std::to_string(command - ids::kFirstPeersTool));
    } else if (command == ids::kPeersForm) {
        // Not within the message: whoever sent it would wait for the dialog's end.
        PostMessageA(window, WM_APP, 0, 0);
    } else if (command == ids::kPeersQuestion) {
        SetDlgItemTextA(window, ids::kPeersResult, "");
        StartTimer(window, kQuestionTimer);
    }
}

void OnTimer(HWND window, UINT_PTR timer) {
    KillTimer(window, timer);
    if (timer == kReadyTimer) {
        Note("ready");
        return;
    }
    if (timer == kQuestionTimer) {
        AskQuestion(window);
        return;
    }
    const std::string result = std::to_string(++round) + ": " + answer;
    SetDlgItemTextA(window, ids::kPeersResult, result.c_str());
    Note("round " + result);
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_APP:
        OpenForm(window);
        return 0;
    case WM_COMMAND:
        OnCommand(window, LOWORD(wParam));
        return 0;
    case WM_TIMER:
        OnTimer(window, wParam);
        return 0;
    case WM_NOTIFY: {
        const auto& header = *reinterpret_cast<const NMHDR*>(lParam);
        if (header.idFrom == ids::kPeersDeepTree && header.code == static_cast<UINT>(TVN_SELCHANGEDA))
            Note("selected " +
                 PathOf(header.hwndFrom, reinterpret_cast<const NMTREEVIEWA&>(header).itemNew.hItem));
        return 0;
    }
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}

} // namespace

void OpenPeersWindow() {
    if (FindWatched("Peers"))
        return;
    RegisterHostClass("SampleHostPeers", Procedure);
    const HWND window = CreateWindowExA(0, "SampleHostPeers", "Peers", WS_OVERLAPPEDWINDOW, 100, 60, 890, 560,
                                        nullptr, CreateMenus(), Instance(), nullptr);
    Watch(window, "Peers");
    AddToolBar(window);
    AddList(window);
    AddTrees(window);
    AddControl(window, {.className = "Static", .area = {10, 460, 500, 20}, .id = ids::kPeersResult});
    ShowWindow(window, SW_SHOW);
    SetTimer(window, kReadyTimer, 0, nullptr); // comes when nothing is left to be painted
}

} // namespace sample_host
