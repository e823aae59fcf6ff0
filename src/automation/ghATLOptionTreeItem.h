// The OptionTreeItem class.
#pragma once

#include "automation/automation_object.h"
#include "automation/wrap.h"
#include "controls/ghOptionTree.h"

class ghATLOptionTreeItem final
    : public automation::AutomationObject<ghATLOptionTreeItem, IOptionTreeItem, ghOptionTree> {
public:
    using AutomationObject::AutomationObject;

    HRESULT STDMETHODCALLTYPE get_Label(BSTR* result) override {
        return Get(result, [](const auto& item) { return item.Label(); });
    }
    HRESULT STDMETHODCALLTYPE get_Child(IOptionTreeItem** result) override {
        *result = nullptr;
        return Run({result}, [&](const auto& item) { return automation::Wrap(item.ChildItem(), result); });
    }
    HRESULT STDMETHODCALLTYPE get_Parent(IOptionTreeItem** result) override {
        *result = nullptr;
        return Run({result}, [&](const auto& item) { return automation::Wrap(item.ParentItem(), result); });
    }
    HRESULT STDMETHODCALLTYPE get_Sibling(IOptionTreeItem** result) override {
        *result = nullptr;
        return Run({result}, [&](const auto& item) { return automation::Wrap(item.SiblingItem(), result); });
    }
    HRESULT STDMETHODCALLTYPE get_IsCheckbox(VARIANT_BOOL* result) override {
        return Get(result, [](const auto& item) { return item.IsCheckbox(); });
    }
    HRESULT STDMETHODCALLTYPE get_Checked(VARIANT_BOOL* result) override {
        return Get(result, [](const auto& item) { return item.Checked(); });
    }
    HRESULT STDMETHODCALLTYPE put_Checked(VARIANT_BOOL value) override {
        return Run({value}, [&](const auto& item) { item.SetChecked(automation::ToBool(value)); });
    }
    HRESULT STDMETHODCALLTYPE get_Text(BSTR* result) override {
        return Get(result, [](const auto& item) { return item.Value(); });
    }
    HRESULT STDMETHODCALLTYPE put_Text(BSTR value) override {
        return Run({value}, [&](const auto& item) { item.SetValue(automation::ToAnsi(value)); });
    }
    HRESULT STDMETHODCALLTYPE get_IsReadOnly(VARIANT_BOOL* result) override {
        return Get(result, [](const auto& item) { return item.IsReadOnly(); });
    }
};
