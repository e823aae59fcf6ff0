#include "controlbars/popup_menu.h"

#include <vector>

#include "controlbars/ghMenu.h"
#include "controlbars/ghToolbar.h"
#include "engine/window_finders.h"
#include "hostlink/host_classes.h"
#include "hostlink/window_kind.h"

namespace controlbars {

namespace {

using hostlink::WindowClass;

// The first of a thread's visible popup menus that passes the test; other programs' menus never count.
template <class Test>
HWND FindPopupMenuThat(DWORD threadId, Test test) noexcept {
    for (HWND popup = nullptr;
         (popup = FindWindowExA(nullptr, popup, hostlink::kMenuClass.data(), nullptr)) != nullptr;) {
        if (GetWindowThreadProcessId(popup, nullptr) == threadId && IsWindowVisible(popup) && test(popup)) {
            return popup;
        }
    }
    return nullptr;
}

// The visible child or owned window that passes the test; the `occurrence`-th one, counted from 1.
HWND FindShown(HWND parent, bool (*test)(HWND), std::uint32_t occurrence = 1) {
    engine::WindowCriteria criteria;
    criteria.flags = engine::kIgnoreCaption | engine::kIgnoreClass | engine::kIgnoreId |
                     engine::kIgnoreStyle | occurrence << 16;
    criteria.customTest = test;
    return engine::FindBelow(parent, criteria);
}

bool IsPlainPopup(HWND window) noexcept {
    return (hostlink::WindowStyle(window) & WS_POPUP) != 0 &&
           hostlink::IsPlainPopupClass(WindowClass(window));
}

// A floating bar lies in such a popup, too, but has a caption.
bool IsProfessionalPopup(HWND window) noexcept {
    const DWORD style = hostlink::WindowStyle(window);
    return (style & WS_POPUP) != 0 && (style & WS_CAPTION) != WS_CAPTION &&
           hostlink::IsFrameworkClass(WindowClass(window));
}

HWND FindPlainPopupBar(HWND owner) {
    const HWND popup = FindShown(owner, IsPlainPopup);
    return popup == nullptr
               ? nullptr
               : FindShown(popup, [](HWND window) { return hostlink::IsPlainBarClass(WindowClass(window)); });
}

// The professional kind has the class of any window of the host's framework: only the bar inside tells.
HWND FindProfessionalPopupBar(HWND owner) {
    for (std::uint32_t occurrence = 1;; ++occurrence) {
        const HWND popup = FindShown(owner, IsProfessionalPopup, occurrence);
        if (popup == nullptr) {
            return nullptr;
        }
        if (const HWND bar = FindShown(
                popup, [](HWND window) { return hostlink::IsProfessionalBarClass(WindowClass(window)); })) {
            return bar;
        }
    }
}

// The window's top-level window and its owners, the outermost first.
std::vector<HWND> TopLevelWindowsAbove(HWND window) {
    std::vector<HWND> above;
    for (; window != nullptr; window = GetParent(window)) {
        if ((hostlink::WindowStyle(window) & WS_CHILD) == 0) {
            above.insert(above.begin(), window);
        }
    }
    return above;
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

bool IsTopmostPopupMenu(DWORD threadId, HMENU menu) noexcept {
    const HWND popup = FindPopupMenu(threadId);
    return popup != nullptr && MenuShownBy(popup) == menu;
}

bool IsInMenuMode(DWORD threadId) noexcept {
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    // Thread id 0 would ask about the foreground thread.
    return threadId != 0 && GetGUIThreadInfo(threadId, &info) && (info.flags & GUI_INMENUMODE) != 0;
}

HWND FindCurrentPopup(const ghBaseWindow& window) {
    if (!IsWindow(window.Window())) {
        return nullptr;
    }
    if (const HWND menu = FindPopupMenu(window.ThreadId())) {
        return menu;
    }
    for (const HWND owner : TopLevelWindowsAbove(window.Window())) {
        if (const HWND bar = FindPlainPopupBar(owner)) {
            return bar;
        }
        if (const HWND bar = FindProfessionalPopupBar(owner)) {
            return bar;
        }
    }
    return nullptr;
}

std::unique_ptr<ghControlBar> MakeShownBar(const ghBaseWindow& owner, HWND popup) {
    if (!IsWindow(popup)) {
        return nullptr;
    }
    if (!hostlink::IsMenuClass(WindowClass(popup))) {
        return std::make_unique<ghToolbar>(popup);
    }
    return std::make_unique<ghMenu>(owner.Window(), MenuShownBy(popup));
}

} // namespace controlbars
