// The system's dialog that opens or saves a file.
#pragma once

#include "engine/ghBaseWindow.h"

class ghOpenSaveDialog : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;
};
