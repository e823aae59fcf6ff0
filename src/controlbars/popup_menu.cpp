#include "controlbars/popup_menu.h"

namespace controlbars {

namespace {

// The first of a thread's visible popup menus that passes the test; other programs' menus never count.
template <class Test>
HWND FindPopupMenuThat(DWORD threadId, Test test) noexcept {
    for (HWND popup = nullptr; (popup = FindWindowExA(nullptr, popup, "#32768", nullptr)) != nullptr;) {
        if (GetWindowThreadProcessId(popup, nullptr) == threadId && IsWindowVisible(popup) && test(popup)) {
            return popup;
        }
    }
    return nullptr;
}

} // namespace

HMENU MenuShownBy(HWND popupMenu) noexcept {
    return reinterpret_cast<HMENU>(SendMessageA(popupMenu, MN_GETHMENU, 0, 0));
}

HWND FindPopupMenu(DWORD threadId) noexcept {
    return FindPopupMenuThat(threadId, [](HWND) { return true; });
}

bool IsPopupMenuShown(DWORD threadId, HMENU menu) noexcept {
    return FindPopupMenuThat(threadId, [menu](HWND popup) { return MenuShownBy(popup) == menu; }) != nullptr;
}

bool IsInMenuMode(DWORD threadId) noexcept {
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    // Thread id 0 would ask about the foreground thread.
    return threadId != 0 && GetGUIThreadInfo(threadId, &info) && (info.flags & GUI_INMENUMODE) != 0;
}

} // namespace controlbars
