// The OptionTree class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghOptionTree.h"

class ghATLOptionTree final
    : public ghATLBaseWindowImpl<ghATLOptionTree, IOptionTree, ghOptionTree, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE GetItemByPath(BSTR, IOptionTreeItem** result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE get_Root(IOptionTreeItem** result) override { return NotImplemented(result); }
};
