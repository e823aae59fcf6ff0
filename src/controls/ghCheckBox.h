// A check box.
#pragma once

#include "engine/ghBaseWindow.h"

class ghCheckBox : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;
};
