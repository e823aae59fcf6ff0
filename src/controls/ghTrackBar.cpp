#include "controls/ghTrackBar.h"

#include <commctrl.h>

#include "engine/activation.h"
#include "engine/synchronise.h"
#include "hostlink/window_kind.h"

int ghTrackBar::Pos() const noexcept {
    return static_cast<int>(SendMessageA(Window(), TBM_GETPOS, 0, 0));
}

void ghTrackBar::SetPos(int position) const {
    engine::WaitUntilReady(*this);
    const bool isVertical = (hostlink::WindowStyle(Window()) & TBS_VERT) != 0;
    // Posts to no window would go to this thread.
    if (IsValid()) {
        PostMessageA(Window(), TBM_SETPOS, TRUE, position);
    }
    if (const HWND parent = GetParent(Window())) {
        PostMessageA(parent, isVertical ? WM_VSCROLL : WM_HSCROLL, TB_ENDTRACK,
                     reinterpret_cast<LPARAM>(Window()));
    }
    engine::Synchronise(*this);
}

int ghTrackBar::Max() const noexcept {
    return static_cast<int>(SendMessageA(Window(), TBM_GETRANGEMAX, 0, 0));
}

int ghTrackBar::Min() const noexcept {
    return static_cast<int>(SendMessageA(Window(), TBM_GETRANGEMIN, 0, 0));
}
