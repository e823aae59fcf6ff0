#include "controlbars/ghBCGPopupMenuButton.h"

#include "controlbars/popup_capture.h"
#include "engine/synchronise.h"
#include "inhouse/syncutil.h"
#include "input/keyboard.h"

namespace {

constexpr DWORD kKeyPause = 50; // milliseconds

} // namespace

void ghBCGPopupMenuButton::Click(int, int, int) {
    if (WalkHere()) {
        input::PressKey(Toolbar(), VK_RETURN, 0);
        engine::Synchronise(Toolbar());
    }
}

// Deliberately without a limit: an entry that never becomes hot keeps it walking. It ends with the popup.
bool ghBCGPopupMenuButton::WalkHere() const {
    for (;;) {
        const auto hot = static_cast<int>(SendMessageA(Toolbar().Window(), TB_GETHOTITEM, 0, 0));
        if (!IsWindow(Toolbar().Window())) {
            return false;
        }
        if (hot == Index()) {
            return true;
        }
        input::PressKey(Toolbar(), VK_DOWN, 0);
        SafeWaitWithMessageLoop(0, nullptr, kKeyPause, TRUE, nullptr);
    }
}

std::unique_ptr<ghControlBar> ghBCGPopupMenuButton::Expand() {
    return controlbars::CapturePopup(Toolbar(), [&] { Click(1, 0, 0); });
}
