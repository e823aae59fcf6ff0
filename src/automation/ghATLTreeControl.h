// The TreeControl class.
#pragma once

#include "automation/ghATLTreeImpl.h"
#include "controls/ghTreeControl.h"

class ghATLTreeControl final : public ghATLTreeImpl<ghATLTreeControl, ghTreeControl> {
public:
    using ghATLTreeImpl::ghATLTreeImpl;
};
