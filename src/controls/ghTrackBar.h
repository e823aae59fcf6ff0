// A track bar.
#pragma once

#include "engine/ghBaseWindow.h"

class ghTrackBar : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;
};
