// The BaseWindow class: any window of the host.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"

class ghATLBaseWindow final : public ghATLBaseWindowImpl<ghATLBaseWindow, IBaseWindow, ghBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;
};
