// The ComboBox class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghComboBox.h"

class ghATLComboBox final : public ghATLBaseWindowImpl<ghATLComboBox, IComboBox, ghComboBox, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE SelectItem(int index, VARIANT_BOOL* result) override {
        return Get(result, {index}, [&](const auto& combo) { return combo.SelectItem(index); });
    }
    HRESULT STDMETHODCALLTYPE SelectItemByName(BSTR name, VARIANT_BOOL* result) override {
        return Get(result, {name},
                   [&](const auto& combo) { return combo.SelectItemByName(automation::ToAnsi(name)); });
    }
    HRESULT STDMETHODCALLTYPE GetItemCount(LONG* result) override {
        return Get(result, [](const auto& combo) { return combo.ItemsCount(); });
    }
    HRESULT STDMETHODCALLTYPE GetItem(LONG index, BSTR* result) override {
        return Get(result, {index}, [&](const auto& combo) { return combo.GetItem(index); });
    }
};
