#include "controlbars/ghMenu.h"

#include <functional>

#include "controlbars/ghMenuItem.h"
#include "controlbars/menu_item_info.h"
#include "controlbars/popup_menu.h"
#include "engine/diagnostics.h"
#include "engine/prefix_match.h"
#include "engine/synchronise.h"
#include "hostlink/window_kind.h"
#include "input/keyboard.h"

namespace {

constexpr int kEscapePause = 10; // milliseconds
// A popup that so many Escapes have not closed does not listen to them.
constexpr int kMostEscapes = 3;

// A child window has its control id in the place of a menu.
HMENU MenuBarOf(HWND window) noexcept {
    const HMENU menu = GetMenu(window);
    return (hostlink::WindowStyle(window) & WS_CHILD) == 0 || IsMenu(menu) ? menu : nullptr;
}

// Presses Escape until `findPopup` finds no window any more. The host is waited for after each key: one
// before the host has closed the menu would be one too many and reach the window behind.
void PressEscapeWhile(const ghMenu& menu, const std::function<HWND()>& findPopup) {
    HWND last = nullptr;
    int pressed = 0;
    for (HWND popup = findPopup(); popup != nullptr; popup = findPopup()) {
        pressed = popup == last ? pressed : 0;
        if (pressed == kMostEscapes) {
            engine::diagnostics::Report("A popup stayed open in spite of Escape.");
            return;
        }
        last = popup;
        ++pressed;
        input::PressKey(menu, VK_ESCAPE, kEscapePause);
        engine::Synchronise(menu);
    }
}

} // namespace

ghMenu::ghMenu(HWND owner) noexcept : ghMenu(owner, MenuBarOf(owner), true) {}

ghMenu::ghMenu(HWND owner, HMENU menu) noexcept : ghMenu(owner, menu, IsMenu(menu) != FALSE) {}

ghMenu::ghMenu(HWND owner, HMENU menu, bool isMenu) noexcept
    : ghControlBar(isMenu && menu != nullptr ? owner : nullptr), m_menu(IsValid() ? menu : nullptr) {}

std::unique_ptr<ghControlBarItem> ghMenu::GetItemByID(const std::string& caption, int id) const {
    return std::make_unique<ghMenuItem>(*this, FindPosition(caption, id));
}

int ghMenu::FindPosition(const std::string& caption, int id) const {
    if (caption.empty() && id < 1) {
        return ghMenuItem::kNoPosition;
    }
    const int count = ItemsCount();
    for (int position = 0; position < count; ++position) {
        const auto item = controlbars::ReadMenuItem(m_menu, position);
        if (!item) {
            continue;
        }
        const bool matches =
            id > 0 ? item->command == static_cast<UINT>(id)
                   : (item->type & MFT_SEPARATOR) == 0 && engine::StartsWith(item->text, caption);
        if (matches) {
            return position;
        }
    }
    return ghMenuItem::kNoPosition;
}

std::unique_ptr<ghControlBarItem> ghMenu::GetItem(int index) const {
    const bool exists = index >= 0 && index < ItemsCount();
    return std::make_unique<ghMenuItem>(*this, exists ? index : ghMenuItem::kNoPosition);
}

int ghMenu::ItemsCount() const {
    return GetMenuItemCount(m_menu);
}

void ghMenu::CloseMenu() {
    Send(WM_CANCELMODE, 0, 0);
    PressEscapeWhile(*this, [this] { return controlbars::FindCurrentPopup(*this); });
    engine::Synchronise(*this);
}

void ghMenu::CloseMenusAbove() const {
    if (!controlbars::IsPopupMenuShown(ThreadId(), m_menu)) {
        return;
    }
    PressEscapeWhile(*this, [this] { return IsOpen() ? nullptr : controlbars::FindPopupMenu(ThreadId()); });
}

bool ghMenu::IsMainMenu() const noexcept {
    return GetMenu(Window()) == m_menu;
}

bool ghMenu::IsOpen() const noexcept {
    return IsMainMenu() ? controlbars::IsInMenuMode(ThreadId())
                        : controlbars::IsTopmostPopupMenu(ThreadId(), m_menu);
}
