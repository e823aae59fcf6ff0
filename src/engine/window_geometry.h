// Sizes and points of windows.
#pragma once

#include <windows.h>

namespace engine {

struct Size {
    int width = 0;
    int height = 0;
    bool operator==(const Size&) const = default;
};

// Both edge pixels are counted: one more than the extent each way.
inline Size EdgeCountedSize(const RECT& rectangle) noexcept {
    return {rectangle.right - rectangle.left + 1, rectangle.bottom - rectangle.top + 1};
}

// The size of the client area, edge pixels counted; 0 by 0 for a window that is gone.
inline Size ClientSize(HWND window) noexcept {
    RECT client;
    return GetClientRect(window, &client) ? EdgeCountedSize(client) : Size{};
}

// In screen coordinates; empty for a window that is gone.
inline RECT WindowRectangle(HWND window) noexcept {
    RECT rectangle = {};
    GetWindowRect(window, &rectangle);
    return rectangle;
}

// A point as mouse messages carry it: two 16-bit halves.
inline LPARAM PackPoint(int x, int y) noexcept {
    return static_cast<LPARAM>(static_cast<DWORD>(y) << 16 | (static_cast<DWORD>(x) & 0xFFFF));
}

} // namespace engine
