#include "controlbars/ghMenu.h"

#include "controlbars/context_menu.h"
#include "controlbars/ghMenuItem.h"
#include "controlbars/menu_item_info.h"
#include "controlbars/popup_menu.h"
#include "engine/prefix_match.h"
#include "engine/synchronise.h"
#include "inhouse/syncutil.h"
#include "input/keyboard.h"

namespace {

constexpr DWORD kEscapePause = 10; // milliseconds

} // namespace

ghMenu::ghMenu(HWND owner) noexcept : ghMenu(owner, GetMenu(owner)) {}

// Asks whether it is a menu in any case: a child window has its control id in that place.
ghMenu::ghMenu(HWND owner, HMENU menu) noexcept
    : ghControlBar(IsMenu(menu) ? owner : nullptr), m_menu(IsValid() ? menu : nullptr) {}

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
    // Without a limit, deliberately. Nothing is found any more when the host is gone. A key before the host
    // has closed the menu would be one too many and reach the window behind.
    while (controlbars::FindCurrentContextMenu(*this) != nullptr) {
        input::PressKey(*this, VK_ESCAPE, 0);
        SafeWaitWithMessageLoop(0, nullptr, kEscapePause, TRUE, nullptr);
        engine::Synchronise(*this);
    }
    engine::Synchronise(*this);
}

bool ghMenu::IsMainMenu() const noexcept {
    return GetMenu(Window()) == m_menu;
}

bool ghMenu::IsOpen() const noexcept {
    return IsMainMenu() ? controlbars::IsInMenuMode(ThreadId())
                        : controlbars::IsPopupMenuShown(ThreadId(), m_menu);
}
