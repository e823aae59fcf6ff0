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

// Unlike the other hooks this one is left in place, until the next main window is looked up.
bool ReplaceLocaleHook(DWORD threadId) noexcept {
    if (shared.localeHook != 0) {
        UnhookWindowsHookEx(ToHook(shared.localeHook));
        shared.localeHook = 0;
    }
    if (threadId != 0) {
        shared.localeHook =
            FromHandle(SetWindowsHookExA(WH_CALLWNDPROC, LocaleProcedure, ModuleInstance(), threadId));
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
    if (ReplaceLocaleHook(mainWindow.threadId)) {
        SendMessageA(mainWindow.window, MSG_GH_GET_LOCALE, 0, 0);
    }
    if (shared.hostLocale != 0) {
        SetThreadLocale(shared.hostLocale);
    }
}

} // namespace hostlink
