#include "hostlink/host_locale.h"

#include "hostlink/hook.h"
#include "hostlink/module_instance.h"
#include "hostlink/registered_messages.h"
#include "hostlink/shared_section.h"
#include "inhouse/syncutil.h"

namespace hostlink {

namespace {

// Has the host's framework do its idle work, which brings its thread's locale up to date.
constexpr UINT kIdleProcessingMessage = 0x036A;
constexpr DWORD kIdleProcessingMilliseconds = 10;

LRESULT CALLBACK LocaleProcedure(int code, WPARAM wParam, LPARAM lParam) noexcept {
    if (AwaitedCall(code, lParam, MSG_GH_GET_LOCALE) != nullptr) {
        shared.hostLocale = GetThreadLocale();
    }
    return CallNext(shared.localeHook, code, wParam, lParam);
}

bool IsInThisProcess(const HostWindow& window) noexcept {
    DWORD processId = 0;
    GetWindowThreadProcessId(window.window, &processId);
    return processId == GetCurrentProcessId();
}

// The hook that this thread installed last. The system removes it with the thread.
struct InstalledHook {
    std::uint64_t handle;
    DWORD threadId; // where it waits
};
thread_local InstalledHook installedHook = {};

void InstallLocaleHook(DWORD threadId) noexcept {
    const std::uint64_t handle =
        FromHandle(SetWindowsHookExA(WH_CALLWNDPROC, LocaleProcedure, ModuleInstance(), threadId));
    installedHook = {handle, threadId};
    shared.localeHook = handle;
}

void RemoveLocaleHook() noexcept {
    if (shared.localeHook != 0) {
        UnhookWindowsHookEx(ToHook(shared.localeHook));
        shared.localeHook = 0;
    }
}

// Unlike the other hooks this one is left in place, until the next main window is looked up.
bool ReplaceLocaleHook(const HostWindow& mainWindow) noexcept {
    RemoveLocaleHook();
    // On a thread of this very process the hook would outlive the module.
    if (mainWindow.threadId != 0 && (!IsInThisProcess(mainWindow) || PinModule())) {
        InstallLocaleHook(mainWindow.threadId);
    }
    return shared.localeHook != 0;
}

} // namespace

void AdoptHostLocale(const HostWindow& mainWindow) noexcept {
    if (mainWindow.window == nullptr) {
        return;
    }
    PostMessageA(mainWindow.window, kIdleProcessingMessage, 1, 0);
    SafeWaitWithMessageLoop(0, nullptr, kIdleProcessingMilliseconds, TRUE, nullptr);
    shared.hostLocale = 0;
    if (ReplaceLocaleHook(mainWindow)) {
        SendMessageTimeoutA(mainWindow.window, MSG_GH_GET_LOCALE, 0, 0, SMTO_ABORTIFHUNG, kHungMilliseconds,
                            nullptr);
    }
    if (shared.hostLocale != 0) {
        SetThreadLocale(shared.hostLocale);
    }
}

ScopedLocaleHookRemoval::ScopedLocaleHookRemoval(const HostWindow& host) noexcept {
    if (installedHook.handle != 0 && installedHook.handle == shared.localeHook &&
        installedHook.threadId == host.threadId) {
        RemoveLocaleHook();
        m_threadId = host.threadId;
    }
}

ScopedLocaleHookRemoval::~ScopedLocaleHookRemoval() {
    // Another script that has looked its main window up meanwhile has its own there.
    if (m_threadId != 0 && shared.localeHook == 0) {
        InstallLocaleHook(m_threadId);
    }
}

} // namespace hostlink
