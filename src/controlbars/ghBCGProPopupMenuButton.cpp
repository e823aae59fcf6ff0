#include "controlbars/ghBCGProPopupMenuButton.h"

#include "controlbars/popup_capture.h"
#include "input/mouse.h"

void ghBCGProPopupMenuButton::Click(int button, int, int) {
    if (const auto area = Rectangle()) {
        const int x = area->left + (area->right - area->left) / 2;
        const int y = area->top + (area->bottom - area->top) / 2;
        input::Click(Toolbar(), button, x, y, 0, true);
    }
}

std::unique_ptr<ghControlBar> ghBCGProPopupMenuButton::Expand() {
    return controlbars::CapturePopup(Toolbar(), [&] { Click(input::kLeftButton, 0, 0); });
}
