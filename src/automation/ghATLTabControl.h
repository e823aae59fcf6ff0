// The TabControl class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghTabControl.h"

class ghATLTabControl final
    : public ghATLBaseWindowImpl<ghATLTabControl, ITabControl, ghTabControl, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE SelectItem(LONG index, VARIANT_BOOL* result) override {
        return Get(result, {index}, [&](const auto& tabs) { return tabs.SelectItem(index); });
    }
    HRESULT STDMETHODCALLTYPE SelectItemByName(BSTR name, VARIANT_BOOL* result) override {
        return Get(result, {name},
                   [&](const auto& tabs) { return tabs.SelectItemByName(automation::ToAnsi(name)); });
    }
    HRESULT STDMETHODCALLTYPE get_ItemsCount(LONG* result) override {
        return Get(result, [](const auto& tabs) { return tabs.ItemsCount(); });
    }
    HRESULT STDMETHODCALLTYPE GetItem(LONG index, BSTR* result) override {
        return Get(result, {index}, [&](const auto& tabs) { return tabs.GetItem(index); });
    }
    HRESULT STDMETHODCALLTYPE get_SelectedItem(LONG* result) override {
        return Get(result, [](const auto& tabs) { return tabs.SelectedItem(); });
    }
    HRESULT STDMETHODCALLTYPE ContextMenu(VARIANT_BOOL selected, IControlBar** result) override {
        *result = nullptr;
        return Run({selected, result}, [&](const auto& tabs) {
            return automation::Wrap(tabs.ContextMenu(automation::ToBool(selected)), result);
        });
    }
};
