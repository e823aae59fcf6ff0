// An entry of the professional kind of the host's own popup menu. It is chosen with real mouse input.
#pragma once

#include "controlbars/ghToolbarButton.h"

class ghBCGProPopupMenuButton : public ghToolbarButton {
public:
    using ghToolbarButton::ghToolbarButton;

    // Clicks the middle of the entry; `x` and `y` are ignored.
    void Click(int button, int x, int y) override;
    // The entries do not tell.
    bool HasSubItems() const override { return true; }
    // Clicks the entry.
    std::unique_ptr<ghControlBar> Expand() override;
};
