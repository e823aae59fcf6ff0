// A tree view.
#pragma once

#include "engine/ghBaseWindow.h"

class ghTreeControl : public ghBaseWindow {
public:
    explicit ghTreeControl(HWND window) noexcept : ghBaseWindow(window) {
        SetRealInput(true); // a tree takes only real clicks
    }
};
