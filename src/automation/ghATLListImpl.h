// The members of IListBox, once for list boxes and list views.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"

template <class Object, class Interface, class Engine, class... Bases>
class ghATLListImpl : public ghATLBaseWindowImpl<Object, Interface, Engine, Bases...> {
public:
    using ghATLBaseWindowImpl<Object, Interface, Engine, Bases...>::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE SelectItem(LONG, VARIANT_BOOL* result) override {
        return this->NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE SelectItemByName(BSTR, VARIANT_BOOL* result) override {
        return this->NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE UnselectItem(LONG, VARIANT_BOOL* result) override {
        return this->NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE UnselectItemByName(BSTR, VARIANT_BOOL* result) override {
        return this->NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE get_ItemsCount(LONG* result) override { return this->NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE GetItem(LONG, BSTR* result) override { return this->NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE get_SelectedItem(LONG* result) override { return this->NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE IsSelected(LONG, VARIANT_BOOL* result) override {
        return this->NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE ContextMenu(VARIANT_BOOL, IControlBar** result) override {
        return this->NotImplemented(result);
    }
};
