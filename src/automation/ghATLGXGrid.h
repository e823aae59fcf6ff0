// The GXGrid class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghGXGrid.h"

class ghATLGXGrid final : public ghATLBaseWindowImpl<ghATLGXGrid, IGXGrid, ghGXGrid, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE get_RowsCount(LONG* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE get_ColumnsCount(LONG* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE GetText(LONG, LONG, BSTR* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE SetText(LONG, LONG, BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_IsReadOnly(LONG, LONG, VARIANT_BOOL* result) override {
        return NotImplemented(result);
    }
};
