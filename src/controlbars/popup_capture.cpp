#include "controlbars/popup_capture.h"

#include "controlbars/ghMenu.h"
#include "controlbars/ghToolbar.h"
#include "controlbars/popup_menu.h"
#include "hostlink/menu_capture.h"

namespace controlbars {

namespace {

struct CapturedWindows {
    HWND bar = nullptr;
    HWND menu = nullptr;
};

// None where the thread cannot be watched. The watch ends before anything else is asked of the host.
CapturedWindows WatchWhile(DWORD threadId, const std::function<void()>& open) {
    const hostlink::MenuCapture capture(threadId);
    if (!capture.Installed()) {
        return {};
    }
    open();
    return {capture.BarWindow(), capture.MenuWindow()};
}

} // namespace

std::unique_ptr<ghControlBar> CapturePopup(const ghBaseWindow& owner, const std::function<void()>& open) {
    const CapturedWindows captured = WatchWhile(owner.ThreadId(), open);
    if (IsWindow(captured.bar)) {
        return std::make_unique<ghToolbar>(captured.bar);
    }
    if (IsWindow(captured.menu)) {
        return std::make_unique<ghMenu>(owner.Window(), MenuShownBy(captured.menu));
    }
    return nullptr;
}

} // namespace controlbars
