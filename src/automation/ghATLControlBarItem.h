// The ControlBarItem class: items of menus and buttons of toolbars.
#pragma once

#include "automation/automation_object.h"
#include "controlbars/ghControlBarItem.h"

class ghATLControlBarItem final
    : public automation::AutomationObject<ghATLControlBarItem, IControlBarItem, ghControlBarItem> {
public:
    using AutomationObject::AutomationObject;

    // E_FAIL when the item stays disabled.
    HRESULT STDMETHODCALLTYPE Click(LONG button, LONG x, LONG y) override;
    HRESULT STDMETHODCALLTYPE get_Checked(VARIANT_BOOL* result) override {
        return Get(result, [](const auto& item) { return item.Checked(); });
    }
    HRESULT STDMETHODCALLTYPE put_Checked(VARIANT_BOOL value) override;
    HRESULT STDMETHODCALLTYPE get_Enabled(VARIANT_BOOL* result) override {
        return Get(result, [](const auto& item) { return item.Enabled(); });
    }
    HRESULT STDMETHODCALLTYPE Expand(IControlBar** result) override;
    HRESULT STDMETHODCALLTYPE get_EnabledTimeout(LONG* result) override {
        return Get(result, [](const auto& item) { return item.EnabledTimeout(); });
    }
    HRESULT STDMETHODCALLTYPE put_EnabledTimeout(LONG value) override {
        return Run({value}, [&](auto& item) { item.SetEnabledTimeout(value); });
    }
};
