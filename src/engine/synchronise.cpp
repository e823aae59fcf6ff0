#include "engine/synchronise.h"

#include "engine/ghSharedUtils.h"
#include "engine/thread_idle.h"
#include "engine/wait_loop.h"
#include "hostlink/registered_messages.h"
#include "hostlink/sync_watch.h"
#include "hostlink/window_kind.h"

namespace engine {

namespace {

constexpr int kLongestSynchronisation = 60000; // milliseconds

// The window that the marker message goes to: a popup dialog that appeared, else the window itself.
HWND ChooseTarget(hostlink::SyncWatch& watch, HWND window, HWND target) noexcept {
    const HWND popup = watch.Popup();
    if (popup == nullptr) {
        return target;
    }
    watch.RequestPost();
    if (hostlink::IsPopupDialog(popup)) {
        return popup;
    }
    watch.ForgetPopup();
    return window;
}

bool InStep(const hostlink::SyncWatch& watch, const ghBaseWindow& window, HWND ancestor, HWND target) {
    if (QueryThreadIdle(window.ThreadId()) == ThreadIdleState::Busy) {
        return false;
    }
    const HWND popup = watch.Popup();
    if (popup != nullptr && IsWindow(popup) && ghSharedUtils::active_dialog(ancestor) != popup) {
        return false;
    }
    return watch.Consumed() || !IsWindow(target);
}

} // namespace

void Synchronise(const ghBaseWindow& window) {
    if (!window.Synchronization()) {
        return;
    }
    hostlink::SyncWatch watch(window.ThreadId());
    const HWND ancestor = TopLevelAncestor(window.Window());
    HWND target = window.Window();
    for (int elapsed = 0; elapsed < kLongestSynchronisation;) {
        target = ChooseTarget(watch, window.Window(), target);
        if (watch.Consumed() && IsWindow(target)) {
            watch.ExpectSync();
            PostMessageA(target, hostlink::MSG_GH_SYNC, 0, 0);
        }
        PumpOneStep();
        elapsed += kStepMilliseconds;
        if (InStep(watch, window, ancestor, target)) {
            return;
        }
    }
}

HWND TopLevelAncestor(HWND window) noexcept {
    HWND ancestor = window;
    for (HWND parent = GetParent(window); parent != nullptr; parent = GetParent(parent)) {
        ancestor = parent;
    }
    return ancestor;
}

} // namespace engine
