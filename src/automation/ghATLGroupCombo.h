// The GroupCombo class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghGroupCombo.h"

class ghATLGroupCombo final
    : public ghATLBaseWindowImpl<ghATLGroupCombo, IGroupCombo, ghGroupCombo, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE SelectItem(int, VARIANT_BOOL* result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE SelectItemByName(BSTR, BSTR, VARIANT_BOOL* result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE GetItemCount(LONG* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE get_HeadingText(BSTR* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE GetItem(LONG, BSTR* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE GetHeading(LONG, BSTR* result) override { return NotImplemented(result); }
};
