// An item of a menu of the system. It is chosen with the keyboard, never with the mouse.
#pragma once

#include "controlbars/ghControlBarItem.h"
#include "controlbars/ghMenu.h"
#include "controlbars/key_walk.h"

class ghMenuItem : public ghControlBarItem {
public:
    static constexpr int kNoPosition = -1;

    // `position` is 0-based; kNoPosition makes an item that is not valid.
    ghMenuItem(const ghMenu& menu, int position) : m_position(position), m_menu(menu) {}

    int Position() const noexcept { return m_position; }

    bool IsValid() const override;
    bool IsAvailable() const override { return true; }
    // An item that cannot be read is neither enabled nor checked.
    bool Enabled() const override;
    // Walks the menu bar, or the popup menu that is open, to the item and chooses it. Nothing is chosen when
    // the menu goes before that. The arguments are ignored.
    void Click(int button, int x, int y) override;
    bool IsCheckable() const override { return true; }
    bool Checked() const override;
    // The menu is closed either way.
    void SetChecked(bool checked) override;
    bool HasSubItems() const override;
    // Null also when the item was not reached.
    std::unique_ptr<ghControlBar> Expand() override;
    int EnabledTimeout() const override { return m_menu.EnabledTimeout(); }
    void SetEnabledTimeout(int seconds) override { m_menu.SetEnabledTimeout(seconds); }
    HWND Window() const noexcept override { return m_menu.Window(); }

private:
    bool HasState(UINT state) const;
    HMENU Submenu() const;
    // Whether the item was reached and chosen.
    bool Choose() const;
    void EnterMenuBar() const;
    void PressMenuKey() const;
    bool WalkTo(int navigationKey) const;
    // `lastOpen`: the tick at which the menu was last seen open.
    controlbars::WalkState Look(ULONGLONG& lastOpen) const;

    int m_position;
    ghMenu m_menu;
};
