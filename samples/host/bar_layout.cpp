#include "bar_layout.h"

#include <algorithm>

namespace sample_host {
namespace {

// In pixels.
constexpr int kMargin = 2;
constexpr int kHeight = 24;
constexpr int kSeparator = 8;
constexpr int kTextMargin = 8;
constexpr int kArrow = 14;
constexpr int kMarkColumn = 24; // left of the texts of a popup

// Selects an object into a canvas for the lifetime of this.
class Selection {
public:
    Selection(HDC canvas, HGDIOBJ object) : m_canvas(canvas), m_previous(SelectObject(canvas, object)) {}
    ~Selection() { SelectObject(m_canvas, m_previous); }
    Selection(const Selection&) = delete;
    Selection& operator=(const Selection&) = delete;

private:
    HDC m_canvas;
    HGDIOBJ m_previous;
};

int TextWidth(HDC canvas, const std::string& text) {
    RECT area{};
    DrawTextA(canvas, text.c_str(), -1, &area, DT_CALCRECT | DT_SINGLELINE);
    return area.right;
}

int WidthOf(HDC canvas, const BarButton& button) {
    if (button.IsSeparator())
        return kSeparator;
    return TextWidth(canvas, button.text) + 2 * kTextMargin + (button.submenu.empty() ? 0 : kArrow);
}

void PaintSeparator(HDC canvas, RECT area, bool vertical) {
    if (vertical)
        area.top = (area.top + area.bottom) / 2;
    else
        area.left = (area.left + area.right) / 2;
    DrawEdge(canvas, &area, EDGE_ETCHED, vertical ? BF_TOP : BF_LEFT);
}

// A triangle in the text colour, in the middle of the area.
void PaintArrow(HDC canvas, const RECT& area, bool toTheRight) {
    const LONG x = (area.left + area.right) / 2;
    const LONG y = (area.top + area.bottom) / 2;
    const POINT down[] = {{x - 4, y - 2}, {x + 4, y - 2}, {x, y + 2}};
    const POINT right[] = {{x - 2, y - 4}, {x - 2, y + 4}, {x + 2, y}};
    SetDCBrushColor(canvas, GetTextColor(canvas));
    const Selection brush(canvas, GetStockObject(DC_BRUSH));
    const Selection pen(canvas, GetStockObject(NULL_PEN));
    Polygon(canvas, toTheRight ? right : down, 3);
}

// A check mark in the text colour, in the middle of the area.
void PaintTick(HDC canvas, const RECT& area) {
    const LONG x = (area.left + area.right) / 2;
    const LONG y = (area.top + area.bottom) / 2;
    SetDCPenColor(canvas, GetTextColor(canvas));
    const Selection pen(canvas, GetStockObject(DC_PEN));
    for (LONG offset = 0; offset < 2; ++offset) { // two pixels thick
        const POINT tick[] = {{x - 4, y - 1 + offset}, {x - 1, y + 2 + offset}, {x + 5, y - 4 + offset}};
        Polyline(canvas, tick, 3);
    }
}

void PaintButton(HDC canvas, const BarButton& button, RECT area, bool vertical, bool hot) {
    const bool lit = hot && !button.disabled;
    if (lit)
        FillRect(canvas, &area, GetSysColorBrush(COLOR_HIGHLIGHT));
    else if (button.checked && !vertical)
        DrawEdge(canvas, &area, BDR_SUNKENOUTER, BF_RECT);
    SetTextColor(canvas, GetSysColor(button.disabled ? COLOR_GRAYTEXT
                                     : lit           ? COLOR_HIGHLIGHTTEXT
                                                     : COLOR_MENUTEXT));
    if (vertical && button.checked)
        PaintTick(canvas, {area.left, area.top, area.left + kMarkColumn, area.bottom});
    if (!button.submenu.empty()) {
        const RECT arrow{area.right - kArrow, area.top, area.right, area.bottom};
        PaintArrow(canvas, arrow, vertical);
    }
    area.left += vertical ? kMarkColumn : kTextMargin;
    DrawTextA(canvas, button.text.c_str(), -1, &area, DT_VCENTER | DT_SINGLELINE);
}

} // namespace

std::vector<RECT> LayOutBar(std::span<const BarButton> buttons, bool vertical) {
    const HDC canvas = GetDC(nullptr);
    std::vector<RECT> areas;
    {
        const Selection font(canvas, DialogFont());
        int widest = 0;
        for (const BarButton& button : buttons)
            widest = std::max(widest, WidthOf(canvas, button));
        int position = kMargin;
        for (const BarButton& button : buttons) {
            const int length =
                vertical ? (button.IsSeparator() ? kSeparator : kHeight) : WidthOf(canvas, button);
            areas.push_back(vertical
                                ? RECT{kMargin, position, kMargin + kMarkColumn + widest, position + length}
                                : RECT{position, kMargin, position + length, kMargin + kHeight});
            position += length;
        }
    }
    ReleaseDC(nullptr, canvas);
    return areas;
}

void PaintBar(HDC canvas, const RECT& client, std::span<const BarButton> buttons, std::span<const RECT> areas,
              bool vertical, int hot) {
    FillRect(canvas, &client, GetSysColorBrush(vertical ? COLOR_MENU : COLOR_3DFACE));
    SetBkMode(canvas, TRANSPARENT);
    const Selection font(canvas, DialogFont());
    for (std::size_t index = 0; index < buttons.size(); ++index) {
        if (buttons[index].IsSeparator())
            PaintSeparator(canvas, areas[index], vertical);
        else
            PaintButton(canvas, buttons[index], areas[index], vertical, static_cast<int>(index) == hot);
    }
}

} // namespace sample_host
