// The CheckBox class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghCheckBox.h"

class ghATLCheckBox final : public ghATLBaseWindowImpl<ghATLCheckBox, ICheckBox, ghCheckBox, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE get_ThreeState(VARIANT_BOOL* result) override {
        return Get(result, [](const auto& box) { return box.ThreeState(); });
    }
    HRESULT STDMETHODCALLTYPE get_Checked(VARIANT_BOOL* result) override {
        return Get(result, [](const auto& box) { return box.Checked(); });
    }
    HRESULT STDMETHODCALLTYPE put_Checked(VARIANT_BOOL value) override {
        return Run({value}, [&](const auto& box) { box.SetChecked(automation::ToBool(value)); });
    }
    HRESULT STDMETHODCALLTYPE get_CheckedState(ghCheckBoxState* result) override {
        return Get(result, [](const auto& box) { return static_cast<ghCheckBoxState>(box.CheckedState()); });
    }
    HRESULT STDMETHODCALLTYPE put_CheckedState(ghCheckBoxState value) override {
        return Run({value}, [&](const auto& box) { box.SetCheckedState(value); });
    }
};
