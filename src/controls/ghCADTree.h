// The host's model tree: a tree view whose items have attributes of the host's own.
#pragma once

#include "controls/ghTreeControl.h"

class ghCADTree : public ghTreeControl {
public:
    using ghTreeControl::ghTreeControl;

    // A ghCADTreeItem.
    std::unique_ptr<ghTreeItem> MakeItem(HTREEITEM item) const override;
};
