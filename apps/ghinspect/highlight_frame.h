// A frame on the screen around a rectangle.
#pragma once

#include <array>

#include <windows.h>

#include "ghinspect/scale.h"

namespace inspector {

// Four thin windows above all others that let the mouse through; what they frame stays as it is.
class HighlightFrame {
public:
    // The owner destroys them with itself.
    void Create(HWND owner);
    // In screen coordinates. An empty rectangle hides the frame.
    void Show(const RECT& rectangle, Scale scale);
    void Hide();

private:
    std::array<HWND, 4> m_edges = {};
};

} // namespace inspector
