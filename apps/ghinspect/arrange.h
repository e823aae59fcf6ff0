// Where the controls of the window stand.
#pragma once

#include <windows.h>

#include "ghinspect/fonts.h"
#include "ghinspect/scale.h"

namespace inspector {

// Gives each control of the window its place.
void Arrange(HWND window, Scale scale, const Fonts& fonts);
// The smallest client area in which everything can be read.
SIZE SmallestArea(Scale scale);

} // namespace inspector
