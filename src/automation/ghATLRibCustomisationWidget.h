// The RibCustomisationWidget class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghRibCustomiser.h"

class ghATLRibCustomisationWidget final
    : public ghATLBaseWindowImpl<ghATLRibCustomisationWidget, IRibCustomisationWidget, ghRibCustomiser,
                                 IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE get_Selected(BSTR* result) override {
        return Get(result, [](const auto& widget) { return widget.Selected(); });
    }
    // S_FALSE, no error, for a form that the host did not select.
    HRESULT STDMETHODCALLTYPE put_Selected(BSTR value) override {
        return Run({value}, [&](const auto& widget) {
            return widget.Select(automation::ToAnsi(value)) ? S_OK : S_FALSE;
        });
    }
};
