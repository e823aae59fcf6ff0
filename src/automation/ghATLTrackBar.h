// The TrackBar class.
#pragma once

#include "automation/ghATLBaseWindowImpl.h"
#include "controls/ghTrackBar.h"

class ghATLTrackBar final : public ghATLBaseWindowImpl<ghATLTrackBar, ITrackBar, ghTrackBar, IBaseWindow> {
public:
    using ghATLBaseWindowImpl::ghATLBaseWindowImpl;

    HRESULT STDMETHODCALLTYPE get_Pos(LONG* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE put_Pos(LONG) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE get_Max(LONG* result) override { return NotImplemented(result); }
    HRESULT STDMETHODCALLTYPE get_Min(LONG* result) override { return NotImplemented(result); }
};
