// The members of ITreeControl, once for plain trees and CAD trees.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"

template <class Object, class Engine>
class ghATLTreeImpl : public ghATLBaseWindowImpl<Object, ITreeControl, Engine, IBaseWindow> {
public:
    using ghATLBaseWindowImpl<Object, ITreeControl, Engine, IBaseWindow>::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE SelectItem(BSTR, VARIANT_BOOL* result) override {
        return this->NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE SelectItemByNum(int, VARIANT_BOOL* result) override {
        return this->NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE SelectItemByPath(BSTR, VARIANT_BOOL* result) override {
        return this->NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE ContextMenu(VARIANT_BOOL, IControlBar** result) override {
        return this->NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE ItemByNumPath(BSTR, ITreeItem** result) override {
        return this->NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE ItemByNum(int, ITreeItem** result) override {
        return this->NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE ItemByPath(BSTR, ITreeItem** result) override {
        return this->NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE get_SelectedItem(ITreeItem** result) override {
        return this->NotImplemented(result);
    }
};
