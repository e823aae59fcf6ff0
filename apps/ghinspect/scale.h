// Lengths on a display of some dots per inch.
#pragma once

#include <windows.h>

namespace inspector {

struct Scale {
    int dpi = USER_DEFAULT_SCREEN_DPI;

    // `length`: in pixels at 100 %.
    int operator()(int length) const noexcept { return MulDiv(length, dpi, USER_DEFAULT_SCREEN_DPI); }
};

} // namespace inspector
