// A tab control.
#pragma once

#include "engine/ghBaseWindow.h"

class ghTabControl : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;
};
