#include "hostlink/window_kind.h"

namespace hostlink {

bool IsPopupDialog(HWND window) noexcept {
    const DWORD style = WindowStyle(window);
    if ((style & DS_MODALFRAME) == 0 && (WindowExtendedStyle(window) & WS_EX_DLGMODALFRAME) == 0) {
        return false;
    }
    return (style & WS_POPUP) != 0;
}

} // namespace hostlink
