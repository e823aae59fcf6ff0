#include "controlbars/popup_capture.h"

#include <optional>

#include "controlbars/popup_menu.h"
#include "hostlink/menu_capture.h"

namespace controlbars {

namespace {

// The bar that the host created, else the menu; null if neither. None where the thread cannot be watched. The
// watch ends before anything else is asked of the host.
std::optional<HWND> CreatedWhile(DWORD threadId, const std::function<void()>& open) {
    const hostlink::MenuCapture capture(threadId);
    if (!capture.Installed()) {
        return std::nullopt;
    }
    open();
    return IsWindow(capture.BarWindow()) ? capture.BarWindow() : capture.MenuWindow();
}

} // namespace

std::unique_ptr<ghControlBar> CapturePopup(const ghBaseWindow& owner, const std::function<void()>& open) {
    const HWND before = FindCurrentPopup(owner);
    const std::optional<HWND> created = CreatedWhile(owner.ThreadId(), open);
    if (!created) {
        return nullptr;
    }
    if (IsWindow(*created)) {
        return MakeShownBar(owner, *created);
    }
    // A host may keep a popup and show it again.
    const HWND shown = FindCurrentPopup(owner);
    return shown != before ? MakeShownBar(owner, shown) : nullptr;
}

} // namespace controlbars
