// The OpenSaveDialog class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghOpenSaveDialog.h"

class ghATLOpenSaveDialog final
    : public ghATLBaseWindowImpl<ghATLOpenSaveDialog, IOpenSaveDialog, ghOpenSaveDialog, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE File(BSTR name) override {
        return Run({name}, [&](const auto& dialog) { dialog.File(automation::ToAnsi(name)); });
    }
    HRESULT STDMETHODCALLTYPE get_Path(BSTR* result) override {
        return Get(result, [](const auto& dialog) { return dialog.Path(); });
    }
};
