// The OpenSaveDialog class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghOpenSaveDialog.h"

class ghATLOpenSaveDialog final
    : public ghATLBaseWindowImpl<ghATLOpenSaveDialog, IOpenSaveDialog, ghOpenSaveDialog, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE File(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Path(BSTR* result) override { return NotImplemented(result); }
};
