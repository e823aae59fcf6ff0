// The RibCustomisationWidget class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghRibCustomiser.h"

class ghATLRibCustomisationWidget final
    : public ghATLBaseWindowImpl<ghATLRibCustomisationWidget, IRibCustomisationWidget, ghRibCustomiser,
                                 IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE get_Selected(BSTR* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_Selected(BSTR) override { return E_NOTIMPL; }
};
