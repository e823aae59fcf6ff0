// The ListBox class.
#pragma once

#include "automation/ghATLListImpl.h"
#include "controls/ghListBox.h"

class ghATLListBox final : public ghATLListImpl<ghATLListBox, IListBox, ghListBox, IBaseWindow> {
public:
    using ghATLListImpl::ghATLListImpl;
};
