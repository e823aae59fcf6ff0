// A grid of the host.
#pragma once

#include "engine/ghBaseWindow.h"

class ghGXGrid : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;
};
