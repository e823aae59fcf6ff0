// The CADTreeControl class: a CAD tree is driven through the interface of every tree.
#pragma once

#include "automation/ghATLTreeImpl.h"
#include "controls/ghCADTree.h"

class ghATLCADTree final : public ghATLTreeImpl<ghATLCADTree, ghCADTree> {
public:
    using ghATLTreeImpl::ghATLTreeImpl;
};
