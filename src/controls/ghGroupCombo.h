// A combo box whose list mixes headings with items.
#pragma once

#include "engine/ghBaseWindow.h"

class ghGroupCombo : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;
};
