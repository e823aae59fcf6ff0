// The host's graphics window.
#pragma once

#include <memory>
#include <string>

#include "controlbars/ghControlBar.h"
#include "controls/view_point_mapping.h"
#include "engine/ghBaseWindow.h"

// Mouse actions take the point and the view's size as they were recorded, in pixels; each activates the
// view and maps the point to the view's present size. Buttons and keys are those of input/mouse.h.
class ghCADView : public ghBaseWindow {
public:
    explicit ghCADView(HWND window) noexcept : ghBaseWindow(window) {
        SetRealInput(true); // the view follows the real cursor
    }

    // The camera as a text of the host's own; empty if the host has none to give.
    std::string CameraPosition() const;
    // Has the host adopt a camera. With both `width` and `height` at least 1 the client area is brought to
    // that size before. A text that is empty or longer than 255 bytes is not sent.
    void SetCameraPosition(const std::string& position, int width, int height);

    void Click(int button, controls::ViewPoint recorded, controls::ViewSize reference, int keys) const;
    void DoubleClick(int button, controls::ViewPoint recorded, controls::ViewSize reference, int keys) const;
    void MouseDown(int button, controls::ViewPoint recorded, controls::ViewSize reference, int keys) const;
    void MouseUp(int button, controls::ViewPoint recorded, controls::ViewSize reference, int keys) const;
    void MouseMove(controls::ViewPoint recorded, controls::ViewSize reference, int keys) const;
    // Null when no menu opens.
    std::unique_ptr<ghControlBar> ContextMenu(controls::ViewPoint recorded,
                                              controls::ViewSize reference) const;

private:
    controls::ViewPoint ActivateAndMap(controls::ViewPoint recorded, controls::ViewSize reference) const;
};
