#include "controlbars/ghMenuItem.h"

#include "controlbars/menu_item_info.h"
#include "engine/synchronise.h"
#include "input/keyboard.h"
#include "input/mouse.h"

namespace {

constexpr int kKeyPause = 10; // milliseconds
// A menu that is not open for so long has been closed, or will not open any more.
constexpr ULONGLONG kLongestAbsence = 5000; // milliseconds

} // namespace

bool ghMenuItem::IsValid() const {
    return m_menu.IsValid() && m_position >= 0 && m_position < m_menu.ItemsCount();
}

bool ghMenuItem::Enabled() const {
    const auto item = controlbars::ReadMenuItem(m_menu.Menu(), m_position);
    return item && (item->state & (MFS_GRAYED | MFS_DISABLED)) == 0;
}

bool ghMenuItem::Checked() const {
    return HasState(MFS_CHECKED);
}

bool ghMenuItem::HasState(UINT state) const {
    const auto item = controlbars::ReadMenuItem(m_menu.Menu(), m_position);
    return item && (item->state & state) != 0;
}

void ghMenuItem::SetChecked(bool checked) {
    if (Checked() != checked) {
        Click(1, 1, 1);
    } else {
        m_menu.CloseMenu();
    }
}

HMENU ghMenuItem::Submenu() const {
    const auto item = controlbars::ReadMenuItem(m_menu.Menu(), m_position);
    return item ? item->submenu : nullptr;
}

bool ghMenuItem::HasSubItems() const {
    return Submenu() != nullptr;
}

std::unique_ptr<ghControlBar> ghMenuItem::Expand() {
    return Choose() ? std::make_unique<ghMenu>(m_menu.Window(), Submenu()) : nullptr;
}

void ghMenuItem::Click(int, int, int) {
    Choose();
}

bool ghMenuItem::Choose() const {
    int navigationKey = VK_DOWN;
    if (m_menu.IsMainMenu()) {
        EnterMenuBar();
        navigationKey = VK_RIGHT;
    } else {
        m_menu.CloseMenusAbove();
    }
    if (!WalkTo(navigationKey)) {
        return false;
    }
    input::PressKey(m_menu, VK_RETURN, 0);
    engine::Synchronise(m_menu);
    return true;
}

// Where the keyboard works the menu bar already, the key leaves it: the next one enters it anew.
void ghMenuItem::EnterMenuBar() const {
    input::ParkCursor(m_menu, false);
    const bool wasOpen = m_menu.IsOpen();
    PressMenuKey();
    if (wasOpen && !m_menu.IsOpen()) {
        PressMenuKey();
    }
}

void ghMenuItem::PressMenuKey() const {
    input::PressMenuKey(m_menu);
    engine::Synchronise(m_menu);
}

bool ghMenuItem::WalkTo(int navigationKey) const {
    ULONGLONG lastOpen = GetTickCount64();
    return controlbars::WalkWithKey(m_menu, navigationKey, kKeyPause, m_menu.ItemsCount(),
                                    [&] { return Look(lastOpen); });
}

controlbars::WalkState ghMenuItem::Look(ULONGLONG& lastOpen) const {
    const auto item = controlbars::ReadMenuItem(m_menu.Menu(), m_position);
    if (!item || !IsWindow(m_menu.Window())) {
        return controlbars::WalkState::Gone;
    }
    if ((item->state & MFS_HILITE) != 0) {
        return controlbars::WalkState::Reached;
    }
    const ULONGLONG now = GetTickCount64();
    if (m_menu.IsOpen()) {
        lastOpen = now;
        return controlbars::WalkState::NotYet;
    }
    return now - lastOpen > kLongestAbsence ? controlbars::WalkState::Gone : controlbars::WalkState::NotOpen;
}
