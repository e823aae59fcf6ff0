#include "controlbars/popup_capture.h"

#include <optional>

#include "controlbars/popup_menu.h"
#include "hostlink/host_classes.h"
#include "hostlink/menu_capture.h"

namespace controlbars {

namespace {

using hostlink::WindowClass;

// What was captured stood where any process can write: it is looked at before it is taken for a bar or menu.
bool IsBarOf(DWORD threadId, HWND window) noexcept {
    return GetWindowThreadProcessId(window, nullptr) == threadId &&
           hostlink::IsHostBarClass(WindowClass(window));
}
bool IsMenuOf(DWORD threadId, HWND window) noexcept {
    return GetWindowThreadProcessId(window, nullptr) == threadId &&
           hostlink::IsMenuClass(WindowClass(window));
}

// The bar that the host created, else the menu; null if neither. None where the thread cannot be watched. The
// watch ends before anything else is asked of the host.
std::optional<HWND> CreatedWhile(DWORD threadId, const std::function<void()>& open) {
    const hostlink::MenuCapture capture(threadId);
    if (!capture.Installed()) {
        return std::nullopt;
    }
    open();
    if (IsBarOf(threadId, capture.BarWindow())) {
        return capture.BarWindow();
    }
    return IsMenuOf(threadId, capture.MenuWindow()) ? capture.MenuWindow() : nullptr;
}

} // namespace

std::unique_ptr<ghControlBar> CapturePopup(const ghBaseWindow& owner, const std::function<void()>& open) {
    const HWND before = FindCurrentPopup(owner);
    const std::optional<HWND> created = CreatedWhile(owner.ThreadId(), open);
    if (!created) {
        return nullptr;
    }
    if (*created != nullptr) {
        return MakeShownBar(owner, *created);
    }
    // A host may keep a popup and show it again.
    const HWND shown = FindCurrentPopup(owner);
    return shown != before ? MakeShownBar(owner, shown) : nullptr;
}

} // namespace controlbars
