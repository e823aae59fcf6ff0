#include "engine/ghSharedUtils.h"

#include <cstring>

#include "hostlink/window_kind.h"

HWND ghSharedUtils::active_dialog(HWND window) {
    DWORD process = 0;
    GetWindowThreadProcessId(window, &process);
    // The order of the windows may change during the walk and lead it in a circle.
    constexpr int kMostWindows = 0x10000;
    HWND current = GetWindow(window, GW_HWNDFIRST);
    for (int walked = 0; current != nullptr && walked < kMostWindows;
         ++walked, current = GetWindow(current, GW_HWNDNEXT)) {
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
