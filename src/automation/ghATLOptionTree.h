// The OptionTree class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghOptionTree.h"

class ghATLOptionTree final
    : public ghATLBaseWindowImpl<ghATLOptionTree, IOptionTree, ghOptionTree, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE GetItemByPath(BSTR path, IOptionTreeItem** result) override {
        *result = nullptr;
        return Run({path, result}, [&](const auto& tree) {
            return automation::Wrap(tree.ItemByPath(automation::ToAnsi(path)), result);
        });
    }
    HRESULT STDMETHODCALLTYPE get_Root(IOptionTreeItem** result) override {
        *result = nullptr;
        return Run({result}, [&](const auto& tree) { return automation::Wrap(tree.RootItem(), result); });
    }
};
