// The window that draws the model. Dragging with the left button orbits, the wheel zooms, a click picks a
// part, a double click resets the camera, a right click opens a menu.
#pragma once

#include "control.h"

namespace sample_host {

HWND AddCadView(HWND parent, Area area, int id);

} // namespace sample_host
