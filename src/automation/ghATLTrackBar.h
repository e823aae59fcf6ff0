// The TrackBar class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghTrackBar.h"

class ghATLTrackBar final : public ghATLBaseWindowImpl<ghATLTrackBar, ITrackBar, ghTrackBar, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE get_Pos(LONG* result) override {
        return Get(result, [](const auto& bar) { return bar.Pos(); });
    }
    HRESULT STDMETHODCALLTYPE put_Pos(LONG value) override {
        return Run({value}, [&](const auto& bar) { bar.SetPos(value); });
    }
    HRESULT STDMETHODCALLTYPE get_Max(LONG* result) override {
        return Get(result, [](const auto& bar) { return bar.Max(); });
    }
    HRESULT STDMETHODCALLTYPE get_Min(LONG* result) override {
        return Get(result, [](const auto& bar) { return bar.Min(); });
    }
};
