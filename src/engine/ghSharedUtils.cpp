#include "engine/ghSharedUtils.h"

#include <cstring>

#include "hostlink/window_kind.h"

HWND ghSharedUtils::active_dialog(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    for (HWND current = GetWindow(window, GW_HWNDFIRST); current != nullptr;
         current = GetWindow(current, GW_HWNDNEXT)) {
        DWORD owner = 0;
        GetWindowThreadProcessId(current, &owner);
        if (owner == process && hostlink::IsPopupDialog(current) && IsWindowVisible(current) &&
            IsWindowEnabled(current)) {
            return current;
        }
    }
    return nullptr;
}

int ghSharedUtils::is_popup_dialog(HWND window) {
    return hostlink::IsPopupDialog(window) ? 1 : 0;
}

bool ghSharedUtils::is_starts_from(const char* text, const char* prefix) {
    return std::strncmp(text, prefix, std::strlen(prefix)) == 0;
}
