// The mouse buttons as messages and as real input carry them.
#pragma once

#include <windows.h>

namespace input {

// Button codes.
inline constexpr int kLeftButton = 1;
inline constexpr int kRightButton = 2;
inline constexpr int kMiddleButton = 3;

struct MouseButton {
    UINT pressMessage; // the release is the next message, the double click the one after
    WPARAM keyBit;     // in wParam while the button is held
    DWORD pressFlag;
    DWORD releaseFlag;

    bool IsKnown() const noexcept { return pressMessage != WM_NULL; }
    UINT ReleaseMessage() const noexcept { return pressMessage + 1; }
    UINT DoubleClickMessage() const noexcept { return pressMessage + 2; }
};

// An unknown code is not rejected, deliberately: its press is posted as message 0, and it is a plain move as
// real input.
constexpr MouseButton ButtonOfCode(int code) noexcept {
    switch (code) {
    case kLeftButton:
        return {WM_LBUTTONDOWN, MK_LBUTTON, MOUSEEVENTF_LEFTDOWN, MOUSEEVENTF_LEFTUP};
    case kRightButton:
        return {WM_RBUTTONDOWN, MK_RBUTTON, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP};
    case kMiddleButton:
        return {WM_MBUTTONDOWN, MK_MBUTTON, MOUSEEVENTF_MIDDLEDOWN, MOUSEEVENTF_MIDDLEUP};
    default:
        return {WM_NULL, 0, 0, 0};
    }
}

} // namespace input
