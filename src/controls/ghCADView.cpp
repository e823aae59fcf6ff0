#include "controls/ghCADView.h"

#include "controlbars/popup_capture.h"
#include "engine/activation.h"
#include "engine/global_atom.h"
#include "engine/synchronise.h"
#include "hostlink/registered_messages.h"
#include "input/mouse.h"

using controls::ViewPoint;
using controls::ViewSize;

namespace {

constexpr int kCameraTextSize = 260; // bytes, terminator included

// The text of an atom that the host made for its reader, who has to delete it.
std::string TakeAtom(ATOM atom) {
    char text[kCameraTextSize] = "";
    if (atom != 0) {
        GlobalGetAtomNameA(atom, text, kCameraTextSize);
        GlobalDeleteAtom(atom);
    }
    return text;
}

} // namespace

std::string ghCADView::CameraPosition() const {
    engine::WaitUntilEnabled(*this);
    const LRESULT atom = SendMessageA(Window(), hostlink::MSG_HA_GetViewPosition_Camera, 0, 0);
    std::string position = TakeAtom(LOWORD(atom));
    engine::Synchronise(*this);
    return position;
}

void ghCADView::SetCameraPosition(const std::string& position, int width, int height) {
    if (width >= 1 && height >= 1) {
        FitSize(width, height);
    }
    engine::WaitUntilEnabled(*this);
    if (const engine::GlobalAtom atom(position); atom.Value() != 0) {
        SendMessageA(Window(), hostlink::MSG_HA_SetViewPosition, atom.Value(), 0);
    }
    engine::Synchronise(*this);
}

void ghCADView::Click(int button, ViewPoint recorded, ViewSize reference, int keys) const {
    const ViewPoint point = ActivateAndMap(recorded, reference);
    input::Click(*this, button, point.x, point.y, keys);
}

void ghCADView::DoubleClick(int button, ViewPoint recorded, ViewSize reference, int keys) const {
    const ViewPoint point = ActivateAndMap(recorded, reference);
    input::DoubleClick(*this, button, point.x, point.y, keys);
}

void ghCADView::MouseDown(int button, ViewPoint recorded, ViewSize reference, int keys) const {
    const ViewPoint point = ActivateAndMap(recorded, reference);
    input::MouseDown(*this, button, point.x, point.y, keys);
}

void ghCADView::MouseUp(int button, ViewPoint recorded, ViewSize reference, int keys) const {
    const ViewPoint point = ActivateAndMap(recorded, reference);
    input::MouseUp(*this, button, point.x, point.y, keys);
}

void ghCADView::MouseMove(ViewPoint recorded, ViewSize reference, int keys) const {
    const ViewPoint point = ActivateAndMap(recorded, reference);
    input::MouseMove(*this, point.x, point.y, keys);
}

std::unique_ptr<ghControlBar> ghCADView::ContextMenu(ViewPoint recorded, ViewSize reference) const {
    return controlbars::CapturePopup(*this, [&] {
        const ViewPoint point = ActivateAndMap(recorded, reference);
        input::Click(*this, input::kRightButton, point.x, point.y, 0, true);
    });
}

// Activation can restore or maximise the window, so the size is read after it.
ViewPoint ghCADView::ActivateAndMap(ViewPoint recorded, ViewSize reference) const {
    engine::Activate(*this);
    RECT client = {};
    GetClientRect(Window(), &client);
    return controls::MapRecordedPoint(recorded, reference,
                                      {client.right - client.left, client.bottom - client.top});
}
