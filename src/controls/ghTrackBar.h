// A track bar.
#pragma once

#include "engine/ghBaseWindow.h"

class ghTrackBar : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;

    int Pos() const noexcept;
    // The control itself keeps the position within its range. The host is told as if the user had ended a
    // drag.
    void SetPos(int position) const;
    int Max() const noexcept;
    int Min() const noexcept;
};
