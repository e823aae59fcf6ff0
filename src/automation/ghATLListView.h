// The ListView class.
#pragma once

#include "automation/ghATLListImpl.h"
#include "controls/ghListView.h"

class ghATLListView final
    : public ghATLListImpl<ghATLListView, IListView, ghListView, IBaseWindow, IListBox> {
public:
    using ghATLListImpl::ghATLListImpl;

    HRESULT STDMETHODCALLTYPE AddToSelection(LONG index, VARIANT_BOOL* result) override {
        return Get(result, {index}, [&](auto& list) { return list.AddToSelection(index); });
    }
    HRESULT STDMETHODCALLTYPE AddToSelectionByName(BSTR name, VARIANT_BOOL* result) override {
        return Get(result, {name},
                   [&](auto& list) { return list.AddToSelectionByName(automation::ToAnsi(name)); });
    }
    HRESULT STDMETHODCALLTYPE Select() override {
        return Run([](auto& list) { list.Select(); });
    }
    HRESULT STDMETHODCALLTYPE GetSubItem(LONG index, LONG column, BSTR* result) override {
        return Get(result, {index, column}, [&](const auto& list) { return list.GetSubItem(index, column); });
    }
    HRESULT STDMETHODCALLTYPE CheckItem(LONG index, VARIANT_BOOL* result) override {
        return Get(result, {index}, [&](auto& list) { return list.CheckItem(index); });
    }
    HRESULT STDMETHODCALLTYPE CheckItemByName(BSTR name, VARIANT_BOOL* result) override {
        return Get(result, {name},
                   [&](auto& list) { return list.CheckItemByName(automation::ToAnsi(name)); });
    }
    HRESULT STDMETHODCALLTYPE UncheckItem(LONG index, VARIANT_BOOL* result) override {
        return Get(result, {index}, [&](auto& list) { return list.UncheckItem(index); });
    }
    HRESULT STDMETHODCALLTYPE UncheckItemByName(BSTR name, VARIANT_BOOL* result) override {
        return Get(result, {name},
                   [&](auto& list) { return list.UncheckItemByName(automation::ToAnsi(name)); });
    }
    HRESULT STDMETHODCALLTYPE IsChecked(LONG index, VARIANT_BOOL* result) override {
        return Get(result, {index}, [&](const auto& list) { return list.IsChecked(index); });
    }
};
