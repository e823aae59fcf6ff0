#include "controlbars/context_menu.h"

#include "controlbars/ghMenu.h"
#include "controlbars/ghToolbar.h"
#include "controlbars/popup_capture.h"
#include "controlbars/popup_menu.h"
#include "engine/synchronise.h"
#include "engine/window_search.h"
#include "hostlink/window_class.h"
#include "hostlink/window_kind.h"
#include "input/mouse.h"

namespace controlbars {

namespace {

bool IsPopupOfClass(HWND window, std::string_view classPrefix) noexcept {
    return (hostlink::WindowStyle(window) & WS_POPUP) != 0 &&
           hostlink::WindowClass(window).StartsWith(classPrefix);
}

// The visible child or owned window that passes the test; the `occurrence`-th one, counted from 1.
HWND FindBelow(HWND parent, bool (*test)(HWND), std::uint32_t occurrence = 1) {
    engine::WindowCriteria criteria;
    criteria.flags = engine::kIgnoreCaption | engine::kIgnoreClass | engine::kIgnoreId |
                     engine::kIgnoreStyle | occurrence << 16;
    criteria.parent = parent;
    criteria.customTest = test;
    return engine::Search(criteria) ? criteria.result : nullptr;
}

HWND FindPlainPopupBar(HWND owner) {
    const HWND popup = FindBelow(owner, [](HWND window) { return IsPopupOfClass(window, "BCGPopupMenu"); });
    return popup == nullptr ? nullptr : FindBelow(popup, [](HWND window) {
        return hostlink::WindowClass(window).StartsWith("BCGToolBar");
    });
}

// The professional kind has the class of any window of the host's framework: only the bar inside tells.
HWND FindProfessionalPopupBar(HWND owner) {
    for (std::uint32_t occurrence = 1;; ++occurrence) {
        const HWND popup = FindBelow(
            owner, [](HWND window) { return IsPopupOfClass(window, "Afx"); }, occurrence);
        if (popup == nullptr) {
            return nullptr;
        }
        if (const HWND bar = FindBelow(
                popup, [](HWND window) { return hostlink::WindowClass(window).StartsWith("BCGPToolBar"); })) {
            return bar;
        }
    }
}

std::unique_ptr<ghControlBar> FindPopupBar(const ghBaseWindow& window) {
    const HWND owner = engine::TopLevelAncestor(window.Window());
    HWND bar = FindPlainPopupBar(owner);
    if (bar == nullptr) {
        bar = FindProfessionalPopupBar(owner);
    }
    return bar == nullptr ? nullptr : std::make_unique<ghToolbar>(bar);
}

} // namespace

std::unique_ptr<ghControlBar> OpenContextMenu(const ghBaseWindow& window, int x, int y) {
    return CapturePopup(window, [&] { input::Click(window, input::kRightButton, x, y, 0, true); });
}

std::unique_ptr<ghControlBar> FindCurrentContextMenu(const ghBaseWindow& window) {
    if (!window.IsValid()) {
        return nullptr;
    }
    if (const HWND popup = FindPopupMenu(window.ThreadId())) {
        auto menu = std::make_unique<ghMenu>(window.Window(), MenuShownBy(popup));
        return menu->IsValid() ? std::move(menu) : nullptr;
    }
    return FindPopupBar(window);
}

} // namespace controlbars
