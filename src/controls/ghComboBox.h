// A combo box.
#pragma once

#include "engine/ghBaseWindow.h"

class ghComboBox : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;
};
