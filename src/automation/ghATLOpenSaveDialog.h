// The OpenSaveDialog class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghOpenSaveDialog.h"

// The one class with a member that fails with a text, which it says by ISupportErrorInfo.
class ghATLOpenSaveDialog final
    : public ghATLBaseWindowImpl<ghATLOpenSaveDialog, IOpenSaveDialog, ghOpenSaveDialog, IBaseWindow>,
      public ISupportErrorInfo {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE File(BSTR name) override {
        return Run([&](const auto& dialog) { dialog.File(automation::ToAnsi(name)); });
    }
    HRESULT STDMETHODCALLTYPE get_Path(BSTR* result) override {
        return Get(result, [](const auto& dialog) { return dialog.Path(); });
    }

    HRESULT STDMETHODCALLTYPE InterfaceSupportsErrorInfo(REFIID iid) override {
        return iid == __uuidof(IOpenSaveDialog) ? S_OK : S_FALSE;
    }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID iid, void** object) override {
        return ghATLBaseWindowImpl::QueryInterface(iid, object);
    }
    ULONG STDMETHODCALLTYPE AddRef() override { return ghATLBaseWindowImpl::AddRef(); }
    ULONG STDMETHODCALLTYPE Release() override { return ghATLBaseWindowImpl::Release(); }

    void* FindMore(REFIID iid) noexcept {
        return iid == IID_ISupportErrorInfo ? static_cast<ISupportErrorInfo*>(this) : nullptr;
    }
};
