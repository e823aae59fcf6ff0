// A check box.
#pragma once

#include "engine/ghBaseWindow.h"

// States are those of BM_GETCHECK: BST_UNCHECKED, BST_CHECKED, BST_INDETERMINATE. They are changed as a user
// does, by at most two clicks: that reaches every state of a box that cycles through three. Whether the box
// ended up as wanted is not reported.
class ghCheckBox : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;

    bool ThreeState() const noexcept;
    int CheckedState() const noexcept;
    void SetCheckedState(int state) const;
    // An indeterminate box is not checked.
    bool Checked() const noexcept;
    void SetChecked(bool checked) const;
};
