// The ControlBar class: menus and toolbars.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controlbars/ghControlBar.h"

class ghATLControlBar final
    : public ghATLBaseWindowImpl<ghATLControlBar, IControlBar, ghControlBar, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE GetItem(int, LONG, LONG, IControlBarItem** result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE GetItemByID(BSTR, int, LONG, LONG, IControlBarItem** result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE get_ItemsCount(int* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE CloseMenu() override { return E_NOTIMPL; }
};
