// The entry object, the one class that scripts create themselves.
#pragma once

#include "automation/automation_object.h"

// Carries no state of its own: its switches are common to every process that has loaded the module.
class ghATLGhosthand final
    : public automation::AutomationObject<ghATLGhosthand, IGhosthand, automation::NoEngine> {
public:
    using AutomationObject::AutomationObject;

    HRESULT STDMETHODCALLTYPE MainWindow(BSTR application, BSTR caption, BSTR className, LONG flags,
                                         LONG timeout, IBaseWindow** result) override;
    HRESULT STDMETHODCALLTYPE UnblockMouse() override;
    HRESULT STDMETHODCALLTYPE get_AllowMouseBlocks(VARIANT_BOOL* result) override;
    HRESULT STDMETHODCALLTYPE put_AllowMouseBlocks(VARIANT_BOOL value) override;
};
