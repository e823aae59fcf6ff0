// The ControlBarItem class: items of menus and buttons of toolbars.
#pragma once

#include "automation/automation_object.h"
#include "controlbars/ghControlBarItem.h"

class ghATLControlBarItem final
    : public automation::AutomationObject<ghATLControlBarItem, IControlBarItem, ghControlBarItem> {
public:
    using AutomationObject::AutomationObject;

    HRESULT STDMETHODCALLTYPE Click(LONG, LONG, LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Checked(VARIANT_BOOL* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_Checked(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Enabled(VARIANT_BOOL* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE Expand(IControlBar** result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE get_EnabledTimeout(LONG* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_EnabledTimeout(LONG) override { return E_NOTIMPL; }
};
