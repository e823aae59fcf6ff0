#include "controlbars/ghBCGPopupMenuButton.h"

#include "controlbars/popup_capture.h"
#include "engine/synchronise.h"
#include "input/keyboard.h"

namespace {

constexpr int kKeyPause = 50; // milliseconds

} // namespace

void ghBCGPopupMenuButton::Click(int, int, int) {
    if (controlbars::WalkWithKey(Toolbar(), VK_DOWN, kKeyPause, Toolbar().ItemsCount(),
                                 [this] { return Look(); })) {
        input::PressKey(Toolbar(), VK_RETURN, 0);
        engine::Synchronise(Toolbar());
    }
}

controlbars::WalkState ghBCGPopupMenuButton::Look() const {
    const auto hot = static_cast<int>(SendMessageA(Toolbar().Window(), TB_GETHOTITEM, 0, 0));
    // Asked last: the popup may have gone, or been hidden, during the message.
    if (!IsWindowVisible(Toolbar().Window())) {
        return controlbars::WalkState::Gone;
    }
    return hot == Index() ? controlbars::WalkState::Reached : controlbars::WalkState::NotYet;
}

std::unique_ptr<ghControlBar> ghBCGPopupMenuButton::Expand() {
    return controlbars::CapturePopup(Toolbar(), [&] { Click(1, 0, 0); });
}
