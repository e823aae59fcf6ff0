#include "engine/activation.h"

#include "engine/ghSharedUtils.h"
#include "engine/synchronise.h"
#include "engine/wait_loop.h"
#include "engine/window_relations.h"
#include "hostlink/foreground_permission.h"
#include "hostlink/window_kind.h"

namespace engine {

namespace {

constexpr int kActiveSeconds = 1;

// Shares the input state of another thread for the lifetime of the object, so that this thread may set
// the focus there.
class AttachedInput {
public:
    explicit AttachedInput(DWORD threadId) noexcept : m_threadId(threadId) {
        MSG message;
        PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE); // a thread without a queue cannot be attached
        m_attached = AttachThreadInput(GetCurrentThreadId(), m_threadId, TRUE) != FALSE;
    }
    ~AttachedInput() {
        if (m_attached) {
            AttachThreadInput(GetCurrentThreadId(), m_threadId, FALSE);
        }
    }
    AttachedInput(const AttachedInput&) = delete;
    AttachedInput& operator=(const AttachedInput&) = delete;

private:
    DWORD m_threadId;
    bool m_attached = false;
};

bool IsOnForegroundThread(HWND window) noexcept {
    return GetWindowThreadProcessId(GetForegroundWindow(), nullptr) ==
           GetWindowThreadProcessId(window, nullptr);
}

// The system may refuse a child window the foreground; its root window, in front, takes it along. Where the
// program is in front already the root is left alone.
bool TakeForeground(HWND window) noexcept {
    if (SetForegroundWindow(window)) {
        return true;
    }
    const HWND root = RootToRaise(window);
    if (root == nullptr || root == window || IsOnForegroundThread(window)) {
        return false;
    }
    BringWindowToTop(root);
    return SetForegroundWindow(root) != FALSE;
}

bool BringToFront(HWND window) noexcept {
    if (GetParent(window) == nullptr) {
        BringWindowToTop(window);
    }
    ShowWindow(window, (hostlink::WindowStyle(window) & WS_MAXIMIZE) != 0 ? SW_MAXIMIZE : SW_RESTORE);
    return TakeForeground(window);
}

bool BringToFrontWithFocus(const ghBaseWindow& window) noexcept {
    const auto bring = [&] {
        const bool inFront = BringToFront(window.Window());
        ::SetFocus(window.Window());
        return inFront;
    };
    if (window.ThreadId() == GetCurrentThreadId()) {
        return bring();
    }
    const AttachedInput attached(window.ThreadId());
    return bring();
}

// The dialog that keeps input from the window; null if the window can have it.
HWND BlockingDialog(HWND window) noexcept {
    const HWND dialog = ghSharedUtils::active_dialog(window);
    return dialog == window || IsChild(dialog, window) ? nullptr : dialog;
}

void WaitUntilActive(const ghBaseWindow& window) {
    Wait(
        kActiveSeconds, [&] { return IsActive(window); }, "Failed to wait for active window.",
        window.Window());
}

} // namespace

bool Activate(const ghBaseWindow& window) {
    if (!IsWindow(window.Window())) {
        return false;
    }
    if (const HWND dialog = BlockingDialog(window.Window())) {
        ghBaseWindow blocking(dialog);
        blocking.SetSynchronization(window.Synchronization());
        return Activate(blocking);
    }
    hostlink::PermitForeground();
    const bool inFront = BringToFrontWithFocus(window);
    WaitUntilActive(window);
    Synchronise(window);
    return inFront;
}

bool IsActive(const ghBaseWindow& window) noexcept {
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    // Thread id 0 would ask about the foreground thread.
    return window.ThreadId() != 0 && GetGUIThreadInfo(window.ThreadId(), &info) &&
           info.hwndActive != nullptr &&
           (info.hwndActive == window.Window() || IsChild(info.hwndActive, window.Window()));
}

void WaitUntilReady(const ghBaseWindow& window) {
    WaitUntilActive(window);
    WaitUntilEnabled(window);
}

void WaitUntilEnabled(const ghBaseWindow& window) {
    Wait(
        window.EnabledTimeout(), [&] { return window.Enabled(); }, "Failed to wait for enabled window.",
        window.Window());
}

} // namespace engine
