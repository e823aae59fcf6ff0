#include <algorithm>

#include "explain/item_at_point.h"
#include "hostlink/window_class.h"
#include "hostlink/window_kind.h"

namespace explain {

namespace {

constexpr int kMostLevels = 100;
constexpr int kMostSiblings = 100'000;

// Windows of other desktops, and of suspended programs, count as visible but are not on the screen.
bool IsCloaked(HWND window) noexcept {
    using GetAttribute = HRESULT(WINAPI*)(HWND, DWORD, void*, DWORD);
    // Looked up at run time: every driven program maps the module that this is part of.
    static const auto getAttribute = [] {
        const HMODULE library = LoadLibraryExA("dwmapi.dll", nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
        return library == nullptr
                   ? nullptr
                   : reinterpret_cast<GetAttribute>(GetProcAddress(library, "DwmGetWindowAttribute"));
    }();
    constexpr DWORD kCloaked = 14; // DWMWA_CLOAKED
    DWORD cloaked = 0;
    return getAttribute != nullptr && SUCCEEDED(getAttribute(window, kCloaked, &cloaked, sizeof cloaked)) &&
           cloaked != 0;
}

// What a tool lays over the desktop to mark something.
bool IsTransparent(HWND window) noexcept {
    return (hostlink::WindowExtendedStyle(window) & WS_EX_TRANSPARENT) != 0;
}

bool HasPoint(HWND window, POINT point) noexcept {
    RECT rectangle = {};
    if (!GetWindowRect(window, &rectangle) || !PtInRect(&rectangle, point)) {
        return false;
    }
    const HRGN region = CreateRectRgn(0, 0, 0, 0);
    const int kind = GetWindowRgn(window, region);
    const bool isCutOut =
        kind != ERROR && !PtInRegion(region, point.x - rectangle.left, point.y - rectangle.top);
    DeleteObject(region);
    return !isCutOut;
}

// Children are cut off where their parent's client area ends.
bool ClientHasPoint(HWND window, POINT point) noexcept {
    RECT client = {};
    GetClientRect(window, &client);
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    return PtInRect(&client, point) != FALSE;
}

// What lies around or behind other controls and is not meant where one of these is.
bool IsFrame(HWND window) noexcept {
    const auto is = [name = hostlink::WindowClass(window)](std::string_view part) {
        return name.Name().find(part) != std::string_view::npos;
    };
    const DWORD style = hostlink::WindowStyle(window);
    if (IsTransparent(window)) {
        return true; // of a child this says only that it is drawn after its siblings
    }
    if (is("Static")) {
        const DWORD type = style & SS_TYPEMASK;
        return (type >= SS_BLACKRECT && type <= SS_WHITEFRAME) ||
               (type >= SS_OWNERDRAW && type <= SS_ETCHEDFRAME);
    }
    // A tab control's pages are its siblings and lie, to the system, below it.
    return (is("Button") && (style & BS_TYPEMASK) == BS_GROUPBOX) || is("SysTabControl32");
}

// The child at the point that is nearest to the front, frames only where there is nothing else.
HWND ChildAt(HWND parent, POINT point) noexcept {
    HWND frame = nullptr;
    int left = kMostSiblings;
    for (HWND child = GetWindow(parent, GW_CHILD); child != nullptr && left-- > 0;
         child = GetWindow(child, GW_HWNDNEXT)) {
        if ((hostlink::WindowStyle(child) & WS_VISIBLE) == 0 || !HasPoint(child, point)) {
            continue;
        }
        if (!IsFrame(child)) {
            return child;
        }
        frame = frame != nullptr ? frame : child;
    }
    return frame;
}

HWND TopLevelAt(POINT point) noexcept {
    int left = kMostSiblings;
    HWND window = GetTopWindow(nullptr);
    while (window != nullptr && left-- > 0 &&
           (!IsWindowVisible(window) || IsIconic(window) || IsTransparent(window) ||
            !HasPoint(window, point) || IsCloaked(window))) {
        window = GetWindow(window, GW_HWNDNEXT);
    }
    return window;
}

} // namespace

HWND WindowAtPoint(POINT screenPoint) {
    HWND window = TopLevelAt(screenPoint);
    for (int level = 0; window != nullptr && level < kMostLevels && ClientHasPoint(window, screenPoint);
         ++level) {
        const HWND child = ChildAt(window, screenPoint);
        if (child == nullptr) {
            break;
        }
        window = child;
    }
    return window;
}

} // namespace explain
