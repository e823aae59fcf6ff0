// The CADView class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghCADView.h"

class ghATLCADView final : public ghATLBaseWindowImpl<ghATLCADView, ICADView, ghCADView, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE SetCameraPosition(BSTR position, LONG width, LONG height) override {
        return Run({position, width, height},
                   [&](auto& view) { view.SetCameraPosition(automation::ToAnsi(position), width, height); });
    }
    HRESULT STDMETHODCALLTYPE Click(LONG button, LONG x, LONG y, LONG referenceWidth, LONG referenceHeight,
                                    LONG keys) override {
        return Run({button, x, y, referenceWidth, referenceHeight, keys}, [&](const auto& view) {
            view.Click(button, {x, y}, {referenceWidth, referenceHeight}, keys);
        });
    }
    HRESULT STDMETHODCALLTYPE DoubleClick(LONG button, LONG x, LONG y, LONG referenceWidth,
                                          LONG referenceHeight, LONG keys) override {
        return Run({button, x, y, referenceWidth, referenceHeight, keys}, [&](const auto& view) {
            view.DoubleClick(button, {x, y}, {referenceWidth, referenceHeight}, keys);
        });
    }
    HRESULT STDMETHODCALLTYPE MouseDown(LONG button, LONG x, LONG y, LONG referenceWidth,
                                        LONG referenceHeight, LONG keys) override {
        return Run({button, x, y, referenceWidth, referenceHeight, keys}, [&](const auto& view) {
            view.MouseDown(button, {x, y}, {referenceWidth, referenceHeight}, keys);
        });
    }
    HRESULT STDMETHODCALLTYPE MouseUp(LONG button, LONG x, LONG y, LONG referenceWidth, LONG referenceHeight,
                                      LONG keys) override {
        return Run({button, x, y, referenceWidth, referenceHeight, keys}, [&](const auto& view) {
            view.MouseUp(button, {x, y}, {referenceWidth, referenceHeight}, keys);
        });
    }
    HRESULT STDMETHODCALLTYPE MouseMove(LONG x, LONG y, LONG referenceWidth, LONG referenceHeight,
                                        LONG keys) override {
        return Run({x, y, referenceWidth, referenceHeight, keys}, [&](const auto& view) {
            view.MouseMove({x, y}, {referenceWidth, referenceHeight}, keys);
        });
    }
    HRESULT STDMETHODCALLTYPE ContextMenu(LONG x, LONG y, LONG referenceWidth, LONG referenceHeight,
                                          IControlBar** result) override {
        *result = nullptr;
        return Run({x, y, referenceWidth, referenceHeight, result}, [&](const auto& view) {
            return automation::Wrap(view.ContextMenu({x, y}, {referenceWidth, referenceHeight}), result);
        });
    }
    HRESULT STDMETHODCALLTYPE get_CameraPosition(BSTR* result) override {
        return Get(result, [](const auto& view) { return view.CameraPosition(); });
    }
};
