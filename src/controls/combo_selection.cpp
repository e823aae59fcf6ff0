#include "controls/combo_selection.h"

#include "engine/synchronise.h"
#include "hostlink/window_kind.h"

namespace controls {

namespace {

// The nearest ancestor that wants to hear of its children; the outermost one if none does.
HWND NotifiedWindow(HWND combo) noexcept {
    HWND notified = GetParent(combo);
    while ((hostlink::WindowExtendedStyle(notified) & WS_EX_NOPARENTNOTIFY) != 0) {
        const HWND above = GetParent(notified);
        if (above == nullptr) {
            break;
        }
        notified = above;
    }
    return notified;
}

void PostNotification(HWND notified, const ghBaseWindow& combo, WORD notification) noexcept {
    const auto id = static_cast<WORD>(combo.ControlID());
    PostMessageA(notified, WM_COMMAND, MAKEWPARAM(id, notification),
                 reinterpret_cast<LPARAM>(combo.Window()));
}

} // namespace

void SelectComboItem(const ghBaseWindow& combo, int index) {
    const HWND notified = NotifiedWindow(combo.Window());
    SendMessageA(combo.Window(), CB_SETCURSEL, static_cast<WPARAM>(index), 0);
    if (notified != nullptr) { // a post to no window would go to this thread
        PostNotification(notified, combo, CBN_SELENDOK);
        PostNotification(notified, combo, CBN_SELCHANGE);
    }
    engine::Synchronise(combo);
}

} // namespace controls
