// The ComboBox class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghComboBox.h"

class ghATLComboBox final : public ghATLBaseWindowImpl<ghATLComboBox, IComboBox, ghComboBox, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE SelectItem(int, VARIANT_BOOL* result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE SelectItemByName(BSTR, VARIANT_BOOL* result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE GetItemCount(LONG* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE GetItem(LONG, BSTR* result) override { return NotImplemented(result); }
};
