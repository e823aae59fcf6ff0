#include "hostlink/sync_watch.h"

#include "hostlink/registered_messages.h"
#include "hostlink/shared_section.h"
#include "hostlink/window_class.h"
#include "hostlink/window_kind.h"

namespace hostlink {

namespace {

LRESULT CALLBACK CreationProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (const CWPSTRUCT* created = AwaitedCall(code, lParam, WM_CREATE)) {
        if (IsPopupDialog(created->hwnd) && WindowClass(created->hwnd).StartsWith("#32770")) {
            shared.syncPopup = FromHandle(created->hwnd);
        }
    } else if (const CWPSTRUCT* destroyed = AwaitedCall(code, lParam, WM_DESTROY)) {
        if (destroyed->hwnd == ToWindow(shared.syncPopup)) {
            shared.syncPopup = 0;
        }
    }
    return CallNext(shared.syncCreateHook, code, wParam, lParam);
}

LRESULT CALLBACK QueueProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (code >= 0 && wParam == PM_REMOVE && reinterpret_cast<const MSG*>(lParam)->message == MSG_GH_SYNC) {
        shared.syncSeen = 1;
    }
    return CallNext(shared.syncQueueHook, code, wParam, lParam);
}

} // namespace

SyncWatch::InitialState::InitialState() noexcept {
    shared.syncPopup = 0;
    shared.syncSeen = 1;
}

SyncWatch::SyncWatch(DWORD threadId) noexcept
    : m_createHook(shared.syncCreateHook, WH_CALLWNDPROC, CreationProcedure, threadId),
      m_queueHook(shared.syncQueueHook, WH_GETMESSAGE, QueueProcedure, threadId) {}

bool SyncWatch::Consumed() const noexcept {
    return shared.syncSeen != 0;
}

void SyncWatch::RequestPost() noexcept {
    shared.syncSeen = 1;
}

void SyncWatch::ExpectSync() noexcept {
    shared.syncSeen = 0;
}

HWND SyncWatch::Popup() const noexcept {
    return ToWindow(shared.syncPopup);
}

void SyncWatch::ForgetPopup() noexcept {
    shared.syncPopup = 0;
}

} // namespace hostlink
