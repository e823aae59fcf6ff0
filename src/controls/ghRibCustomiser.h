// The host's widget that selects a form of its ribbon. No operation activates it, waits or synchronises.
#pragma once

#include <string>

#include "engine/ghBaseWindow.h"

class ghRibCustomiser : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;

    // The name of the selected form; empty for a window of another kind.
    std::string Selected() const;
    // Whether the host selected the form of that name. A name of 1024 bytes and more is not sent.
    bool Select(const std::string& name) const;
};
