// The members of IListBox, once for list boxes and list views.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"

template <class Object, class Interface, class Engine, class... Bases>
class ghATLListImpl : public ghATLBaseWindowImpl<Object, Interface, Engine, Bases...> {
public:
    using ghATLBaseWindowImpl<Object, Interface, Engine, Bases...>::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE SelectItem(LONG index, VARIANT_BOOL* result) override {
        return this->Get(result, {index}, [&](auto& list) { return list.SelectItem(index); });
    }
    HRESULT STDMETHODCALLTYPE SelectItemByName(BSTR name, VARIANT_BOOL* result) override {
        return this->Get(result, {name},
                         [&](auto& list) { return list.SelectItemByName(automation::ToAnsi(name)); });
    }
    HRESULT STDMETHODCALLTYPE UnselectItem(LONG index, VARIANT_BOOL* result) override {
        return this->Get(result, {index}, [&](auto& list) { return list.UnselectItem(index); });
    }
    HRESULT STDMETHODCALLTYPE UnselectItemByName(BSTR name, VARIANT_BOOL* result) override {
        return this->Get(result, {name},
                         [&](auto& list) { return list.UnselectItemByName(automation::ToAnsi(name)); });
    }
    HRESULT STDMETHODCALLTYPE get_ItemsCount(LONG* result) override {
        return this->Get(result, [](const auto& list) { return list.ItemsCount(); });
    }
    HRESULT STDMETHODCALLTYPE GetItem(LONG index, BSTR* result) override {
        return this->Get(result, {index}, [&](const auto& list) { return list.GetItem(index); });
    }
    HRESULT STDMETHODCALLTYPE get_SelectedItem(LONG* result) override {
        return this->Get(result, [](const auto& list) { return list.SelectedItem(); });
    }
    HRESULT STDMETHODCALLTYPE IsSelected(LONG index, VARIANT_BOOL* result) override {
        return this->Get(result, {index}, [&](const auto& list) { return list.IsSelected(index); });
    }
    HRESULT STDMETHODCALLTYPE ContextMenu(VARIANT_BOOL selected, IControlBar** result) override {
        *result = nullptr;
        return this->Run({selected, result}, [&](auto& list) {
            return automation::Wrap(list.ContextMenu(automation::ToBool(selected)), result);
        });
    }
};
