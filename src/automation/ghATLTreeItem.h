// The TreeItem class.
#pragma once

#include "automation/ghATLTreeItemImpl.h"

class ghATLTreeItem final : public ghATLTreeItemImpl<ghATLTreeItem, ITreeItem, ghTreeItem> {
public:
    using ghATLTreeItemImpl::ghATLTreeItemImpl;

    HRESULT STDMETHODCALLTYPE get_Text(BSTR* result) override {
        return Get(result, [](const auto& item) { return item.Text(); });
    }
    HRESULT STDMETHODCALLTYPE put_Text(BSTR value) override {
        return Run({value}, [&](auto& item) { item.SetText(automation::ToAnsi(value)); });
    }
    HRESULT STDMETHODCALLTYPE get_StateImage(LONG* result) override {
        return Get(result, [](const auto& item) { return item.StateImage(); });
    }
};
