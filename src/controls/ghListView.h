// A list view.
#pragma once

#include "engine/ghBaseWindow.h"

class ghListView : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;
};
