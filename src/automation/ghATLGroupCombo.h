// The GroupCombo class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghGroupCombo.h"

class ghATLGroupCombo final
    : public ghATLBaseWindowImpl<ghATLGroupCombo, IGroupCombo, ghGroupCombo, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE SelectItem(int index, VARIANT_BOOL* result) override {
        return Get(result, {index}, [&](const auto& combo) { return combo.SelectItem(index); });
    }
    HRESULT STDMETHODCALLTYPE SelectItemByName(BSTR heading, BSTR item, VARIANT_BOOL* result) override {
        return Get(result, {heading, item}, [&](const auto& combo) {
            return combo.SelectItemByName(automation::ToAnsi(heading), automation::ToAnsi(item));
        });
    }
    HRESULT STDMETHODCALLTYPE GetItemCount(LONG* result) override {
        return Get(result, [](const auto& combo) { return combo.ItemsCount(); });
    }
    HRESULT STDMETHODCALLTYPE get_HeadingText(BSTR* result) override {
        return Get(result, [](const auto& combo) { return combo.HeadingText(); });
    }
    HRESULT STDMETHODCALLTYPE GetItem(LONG index, BSTR* result) override {
        return Get(result, {index}, [&](const auto& combo) { return combo.ItemText(index); });
    }
    HRESULT STDMETHODCALLTYPE GetHeading(LONG index, BSTR* result) override {
        return Get(result, {index}, [&](const auto& combo) { return combo.HeadingOfItem(index); });
    }
};
