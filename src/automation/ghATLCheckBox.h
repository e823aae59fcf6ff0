// The CheckBox class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghCheckBox.h"

class ghATLCheckBox final : public ghATLBaseWindowImpl<ghATLCheckBox, ICheckBox, ghCheckBox, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE get_ThreeState(VARIANT_BOOL* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE get_Checked(VARIANT_BOOL* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_Checked(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_CheckedState(ghCheckBoxState* result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE put_CheckedState(ghCheckBoxState) override { return E_NOTIMPL; }
};
