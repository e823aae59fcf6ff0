// A list box.
#pragma once

#include "engine/ghBaseWindow.h"

class ghListBox : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;
};
