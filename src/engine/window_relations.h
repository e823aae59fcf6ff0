// How windows stand to each other.
#pragma once

#include <windows.h>

namespace engine {

// The top-level window (or the outermost owner) above a window; the window itself if nothing is above it.
inline HWND TopLevelAncestor(HWND window) noexcept {
    HWND ancestor = window;
    for (HWND parent = GetParent(window); parent != nullptr; parent = GetParent(parent)) {
        ancestor = parent;
    }
    return ancestor;
}

// The window that is brought to the front so that `window`, which it holds or is, is seen. Null for a window
// that is gone and inside of a popup without caption: that is in front already, and closes when it is
// activated.
inline HWND RootToRaise(HWND window) noexcept {
    const HWND root = GetAncestor(window, GA_ROOT);
    const bool isPopup = GetWindow(root, GW_OWNER) != nullptr &&
                         (GetWindowLongPtrA(root, GWL_STYLE) & WS_CAPTION) != WS_CAPTION;
    return isPopup ? nullptr : root;
}

} // namespace engine
