// The host's option tree, and an item of it.
#pragma once

#include <cstdint>

#include "engine/ghBaseWindow.h"

// The tree itself carries the item identifier 0, which means no item.
class ghOptionTree : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;
};
