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

} // namespace engine
