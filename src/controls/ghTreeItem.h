// An item of a tree view.
#pragma once

#include "controls/ghTreeControl.h"

class ghTreeItem {
public:
    virtual ~ghTreeItem() = default;
    bool IsValid() const noexcept { return false; }
};
