// The CADTreeItem class.
#pragma once

#include "automation/automation_object.h"
#include "controls/ghCADTreeItem.h"

class ghATLCADTreeItem final
    : public automation::AutomationObject<ghATLCADTreeItem, ICADTreeItem, ghCADTreeItem, ITreeItem> {
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
    HRESULT STDMETHODCALLTYPE get_Visible(VARIANT_BOOL* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_Visible(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Checked(VARIANT_BOOL* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_Checked(VARIANT_BOOL) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Color(LONG* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_Color(LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Starred(VARIANT_BOOL* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_Starred(VARIANT_BOOL) override { return E_NOTIMPL; }
};
