#include "frame.h"

#include "control.h"
#include "host_ids.h"
#include "menu_bar.h"
#include "page_table.h"
#include "tool_bars.h"
#include "watch.h"

#include <commctrl.h>

namespace sample_host {
namespace {

constexpr int kWidth = 1100;
constexpr int kHeight = 760;

// Posted to the frame: ends the host, wParam is the exit code.
constexpr UINT kEndHost = WM_APP + 1;

int exitCode = 0;
HWND frame = nullptr;
HWND client = nullptr;
HWND statusBar = nullptr;

// A part that is hidden takes no room.
int HeightOf(HWND bar) {
    RECT area{};
    if (GetWindowLongPtrA(bar, GWL_STYLE) & WS_VISIBLE)
        GetWindowRect(bar, &area);
    return area.bottom - area.top;
}

void LayOut() {
    RECT area;
    GetClientRect(frame, &area);
    SendMessageA(statusBar, WM_SIZE, 0, 0); // it puts itself at the bottom
    const int top = LayOutToolBars(area.right);
    MoveWindow(client, 0, top, area.right, area.bottom - top - HeightOf(statusBar), TRUE);
}

void CreateClient() {
    CLIENTCREATESTRUCT creation{};
    creation.hWindowMenu = GetSubMenu(GetMenu(frame), kWindowMenuPosition);
    creation.idFirstChild = ids::kWindowFirstChild;
    client = CreateWindowExA(WS_EX_CLIENTEDGE, "MDIClient", nullptr,
                             WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN | WS_VSCROLL | WS_HSCROLL |
                                 MDIS_ALLCHILDSTYLES,
                             0, 0, 0, 0, frame, nullptr, Instance(), &creation);
    Watch(client, "MDIClient");
}

void ToggleView(unsigned command) {
    const bool marked = ToggleMark(GetMenu(frame), command);
    if (command == ids::kViewStatusBar) {
        ShowWindow(statusBar, marked ? SW_SHOW : SW_HIDE);
        LayOut();
    } else if (command == ids::kViewToolbar) {
        ShowToolBars(marked);
        LayOut();
    } else if (command == ids::kViewGrid) {
        MarkToolBarButton(command, marked);
    }
}

// Sends a request to the edit control of the active document.
void AskActiveEdit(UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    const auto document = reinterpret_cast<HWND>(SendMessageA(client, WM_MDIGETACTIVE, 0, 0));
    if (const HWND edit = GetDlgItem(document, ids::kEdit))
        SendMessageA(edit, message, wParam, lParam);
}

// Returns whether the command is one of the frame's own.
bool OnCommand(unsigned command) {
    if (OpenPage(command))
        return true;
    switch (command) {
    case ids::kFileNew:
        return OpenPage("document");
    case ids::kFileClose:
        if (const auto active = SendMessageA(client, WM_MDIGETACTIVE, 0, 0))
            SendMessageA(client, WM_MDIDESTROY, static_cast<WPARAM>(active), 0);
        return true;
    case ids::kFileExit:
        PostMessageA(frame, WM_CLOSE, 0, 0);
        return true;
    case ids::kEditCut:
        AskActiveEdit(WM_CUT);
        return true;
    case ids::kEditCopy:
        AskActiveEdit(WM_COPY);
        return true;
    case ids::kEditPaste:
        AskActiveEdit(WM_PASTE);
        return true;
    case ids::kEditSelectAll:
        AskActiveEdit(EM_SETSEL, 0, -1);
        return true;
    case ids::kWindowCascade:
        SendMessageA(client, WM_MDICASCADE, 0, 0);
        return true;
    case ids::kWindowTileHorizontally:
        SendMessageA(client, WM_MDITILE, MDITILE_HORIZONTAL, 0);
        return true;
    case ids::kWindowTileVertically:
        SendMessageA(client, WM_MDITILE, MDITILE_VERTICAL, 0);
        return true;
    case ids::kWindowArrange:
        SendMessageA(client, WM_MDIICONARRANGE, 0, 0);
        return true;
    default:
        ToggleView(command);
        // The rest, down to the list of MDI children, is the business of DefFrameProcA.
        return false;
    }
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_CREATE:
        frame = window;
        Watch(frame, "Frame");
        CreateClient();
        CreateToolBars(frame);
        statusBar = AddControl(
            frame,
            {.className = STATUSCLASSNAMEA, .text = "Ready", .style = SBARS_SIZEGRIP, .id = ids::kStatusBar});
        return 0;
    case WM_SIZE:
        LayOut();
        return 0; // DefFrameProcA would give the client the whole area
    case WM_COMMAND:
        SetStatus("Command " + std::to_string(LOWORD(wParam)));
        if (OnCommand(LOWORD(wParam)))
            return 0;
        break;
    case WM_NOTIFY: {
        LRESULT result = 0;
        if (lParam && OnToolBarNotify(*reinterpret_cast<const NMHDR*>(lParam), result))
            return result;
        break;
    }
    case WM_CLOSE:
        DestroyWindow(window);
        return 0;
    case kEndHost:
        exitCode = static_cast<int>(wParam);
        DestroyWindow(window);
        return 0;
    case WM_DESTROY:
        PostQuitMessage(exitCode);
        return 0;
    default:
        break;
    }
    return DefFrameProcA(window, client, message, wParam, lParam);
}

} // namespace

HWND CreateFrame(const std::string& className) {
    RegisterHostClass(className.c_str(), Procedure);
    return CreateWindowExA(0, className.c_str(), ids::kFrameCaption, WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN,
                           40, 40, kWidth, kHeight, nullptr, CreateMenuBar(), Instance(), nullptr);
}

HWND Frame() {
    return frame;
}

HWND MdiClient() {
    return client;
}

HWND DialogOwner() {
    return IsWindowEnabled(frame) ? frame : GetLastActivePopup(frame);
}

void EndHost(int code) {
    PostMessageA(frame, kEndHost, static_cast<WPARAM>(code), 0);
}

void SetStatus(const std::string& text) {
    SendMessageA(statusBar, SB_SETTEXTA, 0, reinterpret_cast<LPARAM>(text.c_str()));
}

} // namespace sample_host
