#include "bar_popup.h"

#include "frame.h"
#include "host_ids.h"
#include "watch.h"

namespace sample_host {
namespace {

struct OpenPopup {
    HWND window;
    HWND bar;
};

// From the outermost to the innermost.
std::vector<OpenPopup> popups;

// Until these tick counts (ms) popups ignore keys, and are hidden instead of destroyed.
ULONGLONG stubbornUntil = 0;
ULONGLONG hiddenUntil = 0;

// Closes all popups further in than `window`, all of them when it is no popup.
void CloseBehind(HWND window) {
    while (!popups.empty() && popups.back().window != window) {
        const HWND innermost = popups.back().window;
        popups.pop_back();
        if (GetTickCount64() < hiddenUntil)
            ShowWindow(innermost, SW_HIDE);
        else
            DestroyWindow(innermost);
    }
}

bool IsInPopup(HWND window) {
    for (const OpenPopup& popup : popups)
        if (popup.window == window || IsChild(popup.window, window))
            return true;
    return false;
}

bool IsButtonPress(UINT message) {
    return message == WM_LBUTTONDOWN || message == WM_RBUTTONDOWN || message == WM_MBUTTONDOWN ||
           message == WM_NCLBUTTONDOWN || message == WM_NCRBUTTONDOWN || message == WM_NCMBUTTONDOWN;
}

bool OnKey(WPARAM virtualKey) {
    if (GetTickCount64() < stubbornUntil)
        return true;
    if (virtualKey == VK_ESCAPE || (virtualKey == VK_LEFT && popups.size() > 1)) {
        CloseBehind(popups.size() > 1 ? popups[popups.size() - 2].window : nullptr);
        return true;
    }
    return WalkBar(popups.back().bar, virtualKey == VK_RIGHT ? VK_RETURN : virtualKey);
}

LRESULT CALLBACK PopupProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCDESTROY) // by its owner's end, not by CloseBehind
        std::erase_if(popups, [&](const OpenPopup& popup) { return popup.window == window; });
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace

void OpenBarPopup(PopupKind kind, POINT corner, const std::vector<BarButton>& entries, HWND origin) {
    CloseBehind(origin ? GetParent(origin) : nullptr);
    const bool plain = kind == PopupKind::Plain;
    const char* className = plain ? "BCGPopupMenu" : "Afx:SamplePopup";
    RegisterHostClass(className, PopupProcedure, COLOR_MENU);
    const HWND window = CreateWindowExA(WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW | WS_EX_TOPMOST, className, "",
                                        WS_POPUP | WS_DLGFRAME, corner.x, corner.y, 10, 10, Frame(), nullptr,
                                        Instance(), nullptr);
    Watch(window, "Popup " + std::to_string(popups.size() + 1));
    const HWND bar = CreateBar(
        window,
        {.className = plain ? "BCGToolBar:popup" : "BCGPToolBar", .buttons = entries, .vertical = true});
    const SIZE size = NaturalSize(bar);
    MoveWindow(bar, 0, 0, size.cx, size.cy, FALSE);
    RECT area{0, 0, size.cx, size.cy};
    AdjustWindowRectEx(&area, WS_POPUP | WS_DLGFRAME, FALSE, 0);
    SetWindowPos(window, nullptr, 0, 0, area.right - area.left, area.bottom - area.top,
                 SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    popups.push_back({window, bar});
    ShowWindow(window, SW_SHOWNOACTIVATE);
}

void OpenFloatingBar() {
    constexpr char kClass[] = "Afx:SampleFloatingBar";
    RegisterHostClass(kClass, PopupProcedure);
    const HWND window =
        CreateWindowExA(WS_EX_NOACTIVATE | WS_EX_TOOLWINDOW, kClass, "Floating", WS_POPUP | WS_CAPTION, 700,
                        300, 200, 80, Frame(), nullptr, Instance(), nullptr);
    Watch(window, "Floating");
    const HWND bar = CreateBar(
        window, {.className = "BCGPToolBar", .buttons = {{.command = ids::kDrawLine, .text = "Line"}}});
    const SIZE size = NaturalSize(bar);
    MoveWindow(bar, 0, 0, size.cx, size.cy, FALSE);
    ShowWindow(window, SW_SHOWNOACTIVATE);
}

void SpoilPopups(Misbehaviour how, DWORD milliseconds) {
    (how == Misbehaviour::StubbornPopups ? stubbornUntil : hiddenUntil) = GetTickCount64() + milliseconds;
}

void CloseBarPopups() {
    CloseBehind(nullptr);
}

bool IsBarPopupMessage(const MSG& message) {
    if (popups.empty())
        return false;
    if (message.message == WM_KEYDOWN)
        return OnKey(message.wParam);
    if (IsButtonPress(message.message) && !IsInPopup(message.hwnd))
        CloseBarPopups(); // the press goes on to its window
    return false;
}

} // namespace sample_host
