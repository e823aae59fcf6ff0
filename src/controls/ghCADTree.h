// The host's model tree.
#pragma once

#include "controls/ghTreeControl.h"

class ghCADTree : public ghTreeControl {
public:
    using ghTreeControl::ghTreeControl;
};
