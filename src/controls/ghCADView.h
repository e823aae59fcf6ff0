// The host's graphics window.
#pragma once

#include "engine/ghBaseWindow.h"

class ghCADView : public ghBaseWindow {
public:
    explicit ghCADView(HWND window) noexcept : ghBaseWindow(window) {
        SetRealInput(true); // the view follows the real cursor
    }
};
