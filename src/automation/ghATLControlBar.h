// The ControlBar class: menus and toolbars.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controlbars/ghControlBar.h"

class ghATLControlBar final
    : public ghATLBaseWindowImpl<ghATLControlBar, IControlBar, ghControlBar, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    // The flags of both are accepted and ignored.
    HRESULT STDMETHODCALLTYPE GetItem(int index, LONG, LONG timeout, IControlBarItem** result) override;
    HRESULT STDMETHODCALLTYPE GetItemByID(BSTR caption, int id, LONG, LONG timeout,
                                          IControlBarItem** result) override;
    HRESULT STDMETHODCALLTYPE get_ItemsCount(int* result) override {
        return Get(result, [](const auto& bar) { return bar.ItemsCount(); });
    }
    HRESULT STDMETHODCALLTYPE CloseMenu() override {
        return Run([](auto& bar) { bar.CloseMenu(); });
    }
};
