#include "ribbon_widget.h"

#include "host_text.h"

#include <algorithm>
#include <map>

namespace sample_host {
namespace {

namespace contract = ghosthand::host_contract;
namespace ribbon_widget = contract::ribbon_widget;

const UINT kRibbonRequest = RegisterWindowMessageA(contract::message_name::kRibbonWidget);

constexpr int kRowHeight = 22; // pixels

struct Widget {
    std::vector<std::string> forms;
    std::size_t selected = 0;
};

std::map<HWND, Widget> widgets;

bool Select(HWND window, std::size_t form) {
    if (form >= widgets[window].forms.size())
        return false;
    widgets[window].selected = form;
    InvalidateRect(window, nullptr, TRUE);
    return true;
}

bool SelectByName(HWND window, const std::string& name) {
    const auto& forms = widgets[window].forms;
    return Select(window, static_cast<std::size_t>(std::ranges::find(forms, name) - forms.begin()));
}

// The record lies in memory of this program.
LRESULT Answer(HWND window, WPARAM request, LPARAM lParam) {
    if (request == ribbon_widget::kProbe)
        return contract::kProbeAnswer;
    auto* buffer = reinterpret_cast<contract::TextBuffer*>(lParam);
    const Widget& widget = widgets[window];
    if (!buffer || widget.forms.empty())
        return 0;
    switch (request) {
    case ribbon_widget::kGetSelected:
        AnswerText(*buffer, widget.forms[widget.selected]);
        return 1;
    case ribbon_widget::kSetSelected:
        return SelectByName(window, ReadText(*buffer));
    default:
        return 0; // a request that a later version may know
    }
}

void Paint(HWND window) {
    PAINTSTRUCT painting;
    const HDC canvas = BeginPaint(window, &painting);
    const HGDIOBJ font = SelectObject(canvas, DialogFont());
    SetBkMode(canvas, TRANSPARENT);
    RECT row;
    GetClientRect(window, &row);
    FillRect(canvas, &row, GetSysColorBrush(COLOR_WINDOW));
    const Widget& widget = widgets[window];
    for (std::size_t form = 0; form < widget.forms.size(); ++form) {
        row.top = static_cast<LONG>(form) * kRowHeight;
        row.bottom = row.top + kRowHeight;
        const bool selected = form == widget.selected;
        FillRect(canvas, &row, GetSysColorBrush(selected ? COLOR_HIGHLIGHT : COLOR_WINDOW));
        SetTextColor(canvas, GetSysColor(selected ? COLOR_HIGHLIGHTTEXT : COLOR_WINDOWTEXT));
        RECT text = row;
        InflateRect(&text, -6, 0);
        DrawTextA(canvas, widget.forms[form].c_str(), -1, &text, DT_SINGLELINE | DT_VCENTER | DT_NOPREFIX);
    }
    SelectObject(canvas, font);
    EndPaint(window, &painting);
}

LRESULT OnMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam, const NextProcedure& next) {
    if (message == kRibbonRequest)
        return Answer(window, wParam, lParam);
    switch (message) {
    case WM_PAINT:
        Paint(window);
        return 0;
    case WM_NCHITTEST:
        return HTCLIENT; // a static control lets the mouse through otherwise
    case WM_LBUTTONDOWN:
        Select(window, HIWORD(lParam) / kRowHeight);
        return 0;
    case WM_NCDESTROY:
        widgets.erase(window);
        break;
    default:
        break;
    }
    return next(window, message, wParam, lParam);
}

} // namespace

HWND AddRibbonWidget(HWND parent, Area area, int id, const char* caption, std::vector<std::string> forms) {
    const HWND window = AddControl(parent, {.className = "Static",
                                            .text = caption,
                                            .style = WS_BORDER | SS_NOTIFY,
                                            .area = area,
                                            .id = id,
                                            .behaviour = OnMessage});
    widgets[window].forms = std::move(forms);
    return window;
}

} // namespace sample_host
