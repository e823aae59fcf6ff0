#include "ghinspect/highlight_frame.h"

namespace inspector {

namespace {

constexpr wchar_t kClass[] = L"GhosthandInspectorFrame";
constexpr COLORREF kColour = RGB(214, 36, 62);
constexpr int kThickness = 3; // in pixels at 100 %

LRESULT CALLBACK EdgeProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_NCHITTEST:
        return HTTRANSPARENT;
    case WM_ERASEBKGND: {
        RECT area;
        GetClientRect(window, &area);
        SetDCBrushColor(reinterpret_cast<HDC>(wParam), kColour);
        FillRect(reinterpret_cast<HDC>(wParam), &area, static_cast<HBRUSH>(GetStockObject(DC_BRUSH)));
        return TRUE;
    }
    default:
        return DefWindowProcW(window, message, wParam, lParam);
    }
}

void Place(HWND edge, int left, int top, int width, int height) {
    SetWindowPos(edge, HWND_TOPMOST, left, top, width, height,
                 SWP_NOACTIVATE | SWP_SHOWWINDOW | SWP_NOOWNERZORDER);
}

} // namespace

void HighlightFrame::Create(HWND owner) {
    WNDCLASSW windowClass{};
    windowClass.lpfnWndProc = EdgeProcedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.lpszClassName = kClass;
    RegisterClassW(&windowClass);
    for (HWND& edge : m_edges) {
        edge = CreateWindowExW(
            WS_EX_TOPMOST | WS_EX_TOOLWINDOW | WS_EX_NOACTIVATE | WS_EX_LAYERED | WS_EX_TRANSPARENT, kClass,
            L"", WS_POPUP, 0, 0, 0, 0, owner, nullptr, windowClass.hInstance, nullptr);
        SetLayeredWindowAttributes(edge, 0, 255, LWA_ALPHA);
    }
}

void HighlightFrame::Show(const RECT& rectangle, Scale scale) {
    if (IsRectEmpty(&rectangle)) {
        Hide();
        return;
    }
    const int thickness = scale(kThickness);
    const int width = rectangle.right - rectangle.left + 2 * thickness;
    const int height = rectangle.bottom - rectangle.top;
    Place(m_edges[0], rectangle.left - thickness, rectangle.top - thickness, width, thickness);
    Place(m_edges[1], rectangle.left - thickness, rectangle.bottom, width, thickness);
    Place(m_edges[2], rectangle.left - thickness, rectangle.top, thickness, height);
    Place(m_edges[3], rectangle.right, rectangle.top, thickness, height);
}

void HighlightFrame::Hide() {
    for (const HWND edge : m_edges) {
        ShowWindow(edge, SW_HIDE);
    }
}

} // namespace inspector
