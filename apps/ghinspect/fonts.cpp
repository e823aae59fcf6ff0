#include "ghinspect/fonts.h"

#include <cwchar>
#include <iterator>

namespace inspector {

Fonts::Fonts(Scale scale) {
    NONCLIENTMETRICSW metrics{};
    metrics.cbSize = sizeof metrics;
    SystemParametersInfoForDpi(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0,
                               static_cast<UINT>(scale.dpi));
    LOGFONTW font = metrics.lfMessageFont;
    m_text.reset(CreateFontIndirectW(&font));
    font.lfWeight = FW_BOLD;
    m_bold.reset(CreateFontIndirectW(&font));
    font.lfWeight = FW_NORMAL;
    font.lfPitchAndFamily = FIXED_PITCH | FF_MODERN;
    std::wcsncpy(font.lfFaceName, L"Consolas", std::size(font.lfFaceName) - 1);
    m_fixed.reset(CreateFontIndirectW(&font));

    const HDC screen = GetDC(nullptr);
    const HGDIOBJ previous = SelectObject(screen, m_text.get());
    TEXTMETRICW text{};
    GetTextMetricsW(screen, &text);
    SelectObject(screen, previous);
    ReleaseDC(nullptr, screen);
    m_lineHeight = text.tmHeight;
}

} // namespace inspector
