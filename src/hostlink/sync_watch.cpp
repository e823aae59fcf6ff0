#include "hostlink/sync_watch.h"

#include <atomic>
#include <utility>

#include "hostlink/host_classes.h"
#include "hostlink/registered_messages.h"
#include "hostlink/shared_section.h"
#include "hostlink/window_kind.h"

namespace hostlink {

namespace {

// How many watches of this process are under way, one inside the other.
std::atomic<int> watches = 0;
std::atomic<int> endedWatches = 0;

LRESULT CALLBACK CreationProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (const CWPSTRUCT* created = AwaitedCall(code, lParam, WM_CREATE)) {
        if (IsPopupDialog(created->hwnd) && IsDialogClass(WindowClass(created->hwnd))) {
            shared.syncPopup = FromHandle(created->hwnd);
        }
    } else if (const CWPSTRUCT* destroyed = AwaitedCall(code, lParam, WM_DESTROY)) {
        if (IsSameWindow(destroyed->hwnd, ToWindow(shared.syncPopup))) {
            shared.syncPopup = 0;
        }
    }
    return CallNext(shared.syncCreateHook, code, wParam, lParam);
}

LRESULT CALLBACK QueueProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (code >= 0 && (wParam & PM_REMOVE) != 0 &&
        reinterpret_cast<const MSG*>(lParam)->message == MSG_GH_SYNC) {
        shared.syncSeen = 1;
    }
    return CallNext(shared.syncQueueHook, code, wParam, lParam);
}

} // namespace

SyncWatch::State::State() noexcept
    : isNested(watches++ > 0), popup(shared.syncPopup), createHook(shared.syncCreateHook),
      queueHook(shared.syncQueueHook) {
    shared.syncPopup = 0;
    shared.syncSeen = 1;
}

SyncWatch::SyncWatch(DWORD threadId) noexcept
    : m_endedAtPost(endedWatches),
      m_createHook(std::in_place, shared.syncCreateHook, WH_CALLWNDPROC, CreationProcedure, threadId),
      m_queueHook(std::in_place, shared.syncQueueHook, WH_GETMESSAGE, QueueProcedure, threadId) {}

SyncWatch::~SyncWatch() {
    m_queueHook.reset();
    m_createHook.reset();
    --watches;
    ++endedWatches;
    if (!m_around.isNested) {
        return;
    }
    shared.syncCreateHook = m_around.createHook;
    shared.syncQueueHook = m_around.queueHook;
    // A dialog that was opened meanwhile is the outer watch's, too.
    if (shared.syncPopup == 0 && IsWindow(ToWindow(m_around.popup))) {
        shared.syncPopup = m_around.popup;
    }
}

bool SyncWatch::WantsPost() const noexcept {
    return shared.syncSeen != 0 || m_endedAtPost != endedWatches;
}

bool SyncWatch::Consumed() const noexcept {
    return shared.syncSeen != 0 && m_endedAtPost == endedWatches;
}

void SyncWatch::RequestPost() noexcept {
    shared.syncSeen = 1;
}

void SyncWatch::ExpectSync() noexcept {
    shared.syncSeen = 0;
    m_endedAtPost = endedWatches;
}

HWND SyncWatch::Popup() const noexcept {
    return ToWindow(shared.syncPopup);
}

void SyncWatch::ForgetPopup() noexcept {
    shared.syncPopup = 0;
}

} // namespace hostlink
