// The TreeItem class.
#pragma once

#include "automation/automation_object.h"
#include "controls/ghTreeItem.h"

class ghATLTreeItem final : public automation::AutomationObject<ghATLTreeItem, ITreeItem, ghTreeItem> {
public:
    using AutomationObject::AutomationObject;

    HRESULT STDMETHODCALLTYPE get_Selected(VARIANT_BOOL* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_Selected(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Expanded(VARIANT_BOOL* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_Expanded(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ContextMenu(IControlBar** result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE get_Text(BSTR* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_Text(BSTR) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_StateImage(LONG* result) override { return NotImplemented(result); }
};
