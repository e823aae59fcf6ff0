// The fonts of the window: the system's own, at the window's scale.
#pragma once

#include <memory>

#include <windows.h>

#include "ghinspect/scale.h"

namespace inspector {

class Fonts {
public:
    explicit Fonts(Scale scale);

    HFONT Text() const noexcept { return m_text.get(); }
    HFONT Bold() const noexcept { return m_bold.get(); }
    HFONT Fixed() const noexcept { return m_fixed.get(); }
    // Of a line of text, in pixels.
    int LineHeight() const noexcept { return m_lineHeight; }

private:
    struct Deleter {
        using pointer = HFONT;
        void operator()(HFONT font) const noexcept { DeleteObject(font); }
    };
    using Owned = std::unique_ptr<HFONT, Deleter>;

    Owned m_text;
    Owned m_bold;
    Owned m_fixed;
    int m_lineHeight = 0;
};

} // namespace inspector
