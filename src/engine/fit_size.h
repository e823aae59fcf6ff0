// Brings a window's client area to a size.
#pragma once

#include "engine/ghBaseWindow.h"
#include "engine/window_geometry.h"

namespace engine {

// `wanted` counts both edge pixels. True if the client area has that size in the end.
bool FitClientArea(const ghBaseWindow& window, Size wanted);

} // namespace engine
