// The host's widget that selects a form of its ribbon.
#pragma once

#include "engine/ghBaseWindow.h"

class ghRibCustomiser : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;
};
