#include "controlbars/ghToolbarButton.h"

#include "controlbars/popup_capture.h"
#include "input/mouse.h"

bool ghToolbarButton::IsValid() const {
    return m_toolbar.IsValid() && m_index >= 0 && m_index < m_toolbar.ItemsCount();
}

bool ghToolbarButton::Enabled() const {
    const auto button = controlbars::ReadButton(m_toolbar.Host(), m_index);
    if (!button) {
        return false;
    }
    // On the host's own bars the bit means disabled.
    const bool marked = (button->state & TBSTATE_ENABLED) != 0;
    return marked != controlbars::IsHostBar(m_toolbar.Window());
}

bool ghToolbarButton::IsCheckable() const {
    return HasStyle(BTNS_CHECK);
}

bool ghToolbarButton::HasSubItems() const {
    return HasStyle(BTNS_DROPDOWN);
}

bool ghToolbarButton::HasStyle(std::uint8_t style) const {
    const auto button = controlbars::ReadButton(m_toolbar.Host(), m_index);
    return button && (button->style & style) != 0;
}

bool ghToolbarButton::Checked() const {
    const auto button = controlbars::ReadButton(m_toolbar.Host(), m_index);
    return button && (button->state & TBSTATE_CHECKED) != 0;
}

void ghToolbarButton::SetChecked(bool checked) {
    if (Checked() == checked) {
        m_toolbar.CloseMenu();
    } else {
        Click(input::kLeftButton, 1, 1);
    }
}

void ghToolbarButton::Click(int button, int x, int y) {
    input::ParkCursor(m_toolbar, true);
    if (const auto rectangle = Rectangle()) {
        input::Click(m_toolbar, button, rectangle->left + x, rectangle->top + y, 0);
    }
}

std::unique_ptr<ghControlBar> ghToolbarButton::Expand() {
    input::ParkCursor(m_toolbar, true);
    const auto rectangle = Rectangle();
    if (!rectangle) {
        return nullptr;
    }
    return controlbars::CapturePopup(m_toolbar, [&] {
        input::Click(m_toolbar, input::kLeftButton, rectangle->right - 2, rectangle->bottom - 2, 0);
    });
}

std::optional<RECT> ghToolbarButton::Rectangle() const {
    return controlbars::ReadButtonRectangle(m_toolbar.Host(), m_index);
}
