// The ListView class.
#pragma once

#include "automation/ghATLListImpl.h"
#include "controls/ghListView.h"

class ghATLListView final
    : public ghATLListImpl<ghATLListView, IListView, ghListView, IBaseWindow, IListBox> {
public:
    using ghATLListImpl::ghATLListImpl;

    HRESULT STDMETHODCALLTYPE AddToSelection(LONG, VARIANT_BOOL* result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE AddToSelectionByName(BSTR, VARIANT_BOOL* result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE Select() override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetSubItem(LONG, LONG, BSTR* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE CheckItem(LONG, VARIANT_BOOL* result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE CheckItemByName(BSTR, VARIANT_BOOL* result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE UncheckItem(LONG, VARIANT_BOOL* result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE UncheckItemByName(BSTR, VARIANT_BOOL* result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE IsChecked(LONG, VARIANT_BOOL* result) override {
        return NotImplemented(result);
    }
};
