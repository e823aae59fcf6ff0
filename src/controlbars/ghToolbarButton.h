// A button of an ordinary toolbar.
#pragma once

#include "controlbars/ghControlBarItem.h"
#include "controlbars/ghToolbar.h"
#include "controlbars/toolbar_messages.h"

class ghToolbarButton : public ghControlBarItem {
public:
    static constexpr int kNoIndex = -1;

    // `index` is 0-based; kNoIndex makes a button that is not valid.
    ghToolbarButton(const ghToolbar& toolbar, int index) : m_index(index), m_toolbar(toolbar) {}

    int Index() const noexcept { return m_index; }

    bool IsValid() const override;
    bool IsAvailable() const override { return true; }
    // A button that cannot be read is neither enabled nor checked, checkable or with sub-items.
    bool Enabled() const override;
    void Click(int button, int x, int y) override;
    bool IsCheckable() const override;
    bool Checked() const override;
    void SetChecked(bool checked) override;
    bool HasSubItems() const override;
    // Clicks the drop-down arrow.
    std::unique_ptr<ghControlBar> Expand() override;
    int EnabledTimeout() const override { return m_toolbar.EnabledTimeout(); }
    void SetEnabledTimeout(int seconds) override { m_toolbar.SetEnabledTimeout(seconds); }
    HWND Window() const noexcept override { return m_toolbar.Window(); }

protected:
    const ghToolbar& Toolbar() const noexcept { return m_toolbar; }
    // In client coordinates of the toolbar; none where the host does not answer.
    std::optional<RECT> Rectangle() const;

private:
    bool HasStyle(std::uint8_t style) const;

    int m_index;
    ghToolbar m_toolbar;
};
