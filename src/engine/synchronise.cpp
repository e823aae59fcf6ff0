#include "engine/synchronise.h"

#include "engine/diagnostics.h"
#include "engine/ghSharedUtils.h"
#include "engine/thread_idle.h"
#include "engine/wait_loop.h"
#include "engine/window_relations.h"
#include "hostlink/registered_messages.h"
#include "hostlink/sync_watch.h"
#include "hostlink/window_kind.h"

namespace engine {

namespace {

// One synchronisation: the marker message on its way through the host's queue.
class Synchronisation {
public:
    Synchronisation(const ghBaseWindow& window, const SynchronisationLimits& limits)
        : m_window(window), m_limits(limits), m_ancestor(TopLevelAncestor(window.Window())),
          m_target(window.Window()), m_watch(window.ThreadId()) {}

    void Run() {
        diagnostics::StepReport report(diagnostics::StepKind::Synchronise, {}, m_limits.longestMilliseconds);
        const ULONGLONG begin = GetTickCount64();
        const auto longest = static_cast<ULONGLONG>(m_limits.longestMilliseconds);
        int rounds = 0;
        bool inStep = false;
        do {
            ChooseTarget();
            PostMarker();
            PumpOneStep();
            ++rounds;
            inStep = IsInStep();
        } while (!inStep && GetTickCount64() - begin < longest);
        report.Ends(Result(inStep, rounds));
    }

private:
    // The window that the marker message goes to: a popup dialog that appeared, else the window itself.
    void ChooseTarget() noexcept {
        const HWND popup = m_watch.Popup();
        if (popup == nullptr) {
            return;
        }
        m_watch.RequestPost();
        if (hostlink::IsPopupDialog(popup)) {
            m_target = popup;
        } else {
            m_watch.ForgetPopup();
            m_target = m_window.Window();
        }
    }

    // A full queue takes the marker in a later round. A window that refuses it, for lack of rights, never
    // will: there is nothing to wait for then but the thread's idleness.
    void PostMarker() noexcept {
        if (!m_watch.WantsPost() || !IsWindow(m_target)) {
            return;
        }
        m_watch.ExpectSync();
        m_isMarkerOut = PostMessageA(m_target, hostlink::MSG_GH_SYNC, 0, 0) != FALSE;
        m_isMarkerRefused = !m_isMarkerOut && GetLastError() == ERROR_ACCESS_DENIED;
        if (!m_isMarkerOut) {
            m_watch.RequestPost();
        }
    }

    bool HasTakenMarker() const noexcept {
        return m_isMarkerRefused || (m_isMarkerOut && m_watch.Consumed()) || !IsWindow(m_target);
    }

    bool IsPopupActive() const noexcept {
        const HWND popup = m_watch.Popup();
        if (popup == nullptr || !IsWindow(popup)) {
            return true;
        }
        // A message box without an owner is gone when the dialog that follows it opens.
        const HWND neighbour = IsWindow(m_ancestor) ? m_ancestor : popup;
        return ghSharedUtils::active_dialog(neighbour) == popup;
    }

    // The idle query is the dearest question and comes last.
    bool IsInStep() { return HasTakenMarker() && IsPopupActive() && !IsBusy(); }

    bool IsBusy() {
        const auto query = m_limits.queryIdle != nullptr ? m_limits.queryIdle : QueryThreadIdle;
        m_idle = query(m_window.ThreadId());
        return m_idle == ThreadIdleState::Busy;
    }

    diagnostics::StepResult Result(bool inStep, int rounds) const noexcept {
        const auto outcome = inStep ? diagnostics::StepOutcome::InStep : diagnostics::StepOutcome::GaveUp;
        const char* const marker = m_isMarkerRefused ? "refused" : HasTakenMarker() ? "taken" : "not taken";
        return {outcome, rounds, marker, IdleName(), m_watch.Popup()};
    }

    const char* IdleName() const noexcept {
        switch (m_idle) {
        case ThreadIdleState::Busy:
            return "busy";
        case ThreadIdleState::Idle:
            return "idle";
        default:
            return "unknown";
        }
    }

    const ghBaseWindow& m_window;
    const SynchronisationLimits& m_limits;
    HWND m_ancestor;
    HWND m_target;
    bool m_isMarkerOut = false;
    bool m_isMarkerRefused = false;
    ThreadIdleState m_idle = ThreadIdleState::CannotTell;
    hostlink::SyncWatch m_watch;
};

} // namespace

void Synchronise(const ghBaseWindow& window, const SynchronisationLimits& limits) {
    if (window.Synchronization()) {
        Synchronisation(window, limits).Run();
    }
}

} // namespace engine
