// The OptionTreeItem class.
#pragma once

#include "automation/automation_object.h"
#include "controls/ghOptionTree.h"

class ghATLOptionTreeItem final
    : public automation::AutomationObject<ghATLOptionTreeItem, IOptionTreeItem, ghOptionTree> {
public:
    using AutomationObject::AutomationObject;

    HRESULT STDMETHODCALLTYPE get_Label(BSTR* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE get_Child(IOptionTreeItem** result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE get_Parent(IOptionTreeItem** result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE get_Sibling(IOptionTreeItem** result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE get_IsCheckbox(VARIANT_BOOL* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE get_Checked(VARIANT_BOOL* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_Checked(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Text(BSTR* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_Text(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_IsReadOnly(VARIANT_BOOL* result) override { return NotImplemented(result); }
};
