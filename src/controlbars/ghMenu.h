// A menu of the system: the menu bar of a window, or a popup menu that it owns.
#pragma once

#include "controlbars/ghControlBar.h"

// As a window it is its owner. Not valid without a menu.
class ghMenu : public ghControlBar {
public:
    ghMenu() = default;
    // The window's menu bar.
    explicit ghMenu(HWND owner) noexcept;
    ghMenu(HWND owner, HMENU menu) noexcept;

    // `caption` includes the "&" marks of the item's text. An id of 1 or more decides alone.
    std::unique_ptr<ghControlBarItem> GetItemByID(const std::string& caption, int id) const override;
    std::unique_ptr<ghControlBarItem> GetItem(int index) const override;
    // -1 when the menu is gone.
    int ItemsCount() const override;
    // Closes whatever menu the owner's GUI thread shows. A popup that stays open all the same is left.
    void CloseMenu() override;

    HMENU Menu() const noexcept { return m_menu; }
    // Whether it is its owner's menu bar.
    bool IsMainMenu() const noexcept;
    // Whether the keyboard can reach its items: a popup menu's while no other menu lies above it.
    bool IsOpen() const noexcept;
    // Closes the menus that lie above a popup menu.
    void CloseMenusAbove() const;

private:
    ghMenu(HWND owner, HMENU menu, bool isMenu) noexcept;

    int FindPosition(const std::string& caption, int id) const;

    HMENU m_menu = nullptr;
};
