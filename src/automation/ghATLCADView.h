// The CADView class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghCADView.h"

class ghATLCADView final : public ghATLBaseWindowImpl<ghATLCADView, ICADView, ghCADView, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE SetCameraPosition(BSTR, LONG, LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE Click(LONG, LONG, LONG, LONG, LONG, LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE DoubleClick(LONG, LONG, LONG, LONG, LONG, LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE MouseDown(LONG, LONG, LONG, LONG, LONG, LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE MouseUp(LONG, LONG, LONG, LONG, LONG, LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE MouseMove(LONG, LONG, LONG, LONG, LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE ContextMenu(LONG, LONG, LONG, LONG, IControlBar** result) override {
        return NotImplemented(result);
    }
    HRESULT STDMETHODCALLTYPE get_CameraPosition(BSTR* result) override { return NotImplemented(result); }
};
