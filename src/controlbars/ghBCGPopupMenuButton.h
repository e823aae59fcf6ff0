// An entry of the host's own popup menu. It is chosen with the keyboard.
#pragma once

#include "controlbars/ghToolbarButton.h"
#include "controlbars/key_walk.h"

class ghBCGPopupMenuButton : public ghToolbarButton {
public:
    using ghToolbarButton::ghToolbarButton;

    // Walks the popup to the entry and chooses it. Nothing is chosen when the popup goes before that. The
    // arguments are ignored.
    void Click(int button, int x, int y) override;
    // Chooses the entry.
    std::unique_ptr<ghControlBar> Expand() override;

private:
    controlbars::WalkState Look() const;
};
