// The TabControl class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghTabControl.h"

class ghATLTabControl final
    : public ghATLBaseWindowImpl<ghATLTabControl, ITabControl, ghTabControl, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE SelectItem(LONG, VARIANT_BOOL* result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE SelectItemByName(BSTR, VARIANT_BOOL* result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE get_ItemsCount(LONG* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE GetItem(LONG, BSTR* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE get_SelectedItem(LONG* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE ContextMenu(VARIANT_BOOL, IControlBar** result) override {
        return NotImplemented(result);
    }
};
