// The CADTreeItem class.
#pragma once

#include "automation/ghATLTreeItemImpl.h"
#include "controls/ghCADTreeItem.h"

class ghATLCADTreeItem final
    : public ghATLTreeItemImpl<ghATLCADTreeItem, ICADTreeItem, ghCADTreeItem, ITreeItem> {
public:
    using ghATLTreeItemImpl::ghATLTreeItemImpl;

    // The text and the image of a CAD tree's item are deliberately out of a script's reach.
    HRESULT STDMETHODCALLTYPE get_Text(BSTR* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_Text(BSTR) override { return NotImplemented(); }
    HRESULT STDMETHODCALLTYPE get_StateImage(LONG* result) override { return NotImplemented(result); }

    HRESULT STDMETHODCALLTYPE get_Visible(VARIANT_BOOL* result) override {
        return Get(result, [](const auto& item) { return item.Visible(); });
    }
    HRESULT STDMETHODCALLTYPE put_Visible(VARIANT_BOOL value) override {
        return Run({value}, [&](const auto& item) { item.SetVisible(automation::ToBool(value)); });
    }
    HRESULT STDMETHODCALLTYPE get_Checked(VARIANT_BOOL* result) override {
        return Get(result, [](const auto& item) { return item.Checked(); });
    }
    HRESULT STDMETHODCALLTYPE put_Checked(VARIANT_BOOL value) override {
        return Run({value}, [&](const auto& item) { item.SetChecked(automation::ToBool(value)); });
    }
    HRESULT STDMETHODCALLTYPE get_Color(LONG* result) override {
        return Get(result, [](const auto& item) { return item.Color(); });
    }
    HRESULT STDMETHODCALLTYPE put_Color(LONG value) override {
        return Run({value}, [&](const auto& item) { item.SetColor(value); });
    }
    HRESULT STDMETHODCALLTYPE get_Starred(VARIANT_BOOL* result) override {
        if (result == nullptr) {
            return automation::FailWithoutText(E_POINTER);
        }
        return Get(result, [](const auto& item) { return item.Starred(); });
    }
    HRESULT STDMETHODCALLTYPE put_Starred(VARIANT_BOOL value) override {
        return Run({value}, [&](const auto& item) { item.SetStarred(automation::ToBool(value)); });
    }
};
