#include "ghinspect/crosshair.h"

#include <algorithm>
#include <utility>

namespace inspector {

namespace {

constexpr wchar_t kClass[] = L"GhosthandInspectorCross";

POINT MousePosition() {
    POINT point;
    GetCursorPos(&point);
    return point;
}

} // namespace

void Crosshair::Create(HWND parent, int id, Events events) {
    m_events = std::move(events);
    WNDCLASSW windowClass{};
    windowClass.style = CS_HREDRAW | CS_VREDRAW;
    windowClass.lpfnWndProc = Procedure;
    windowClass.hInstance = GetModuleHandleW(nullptr);
    windowClass.hCursor = LoadCursorW(nullptr, IDC_HAND);
    windowClass.lpszClassName = kClass;
    RegisterClassW(&windowClass);
    CreateWindowExW(0, kClass, L"Crosshair", WS_CHILD | WS_VISIBLE | WS_TABSTOP, 0, 0, 0, 0, parent,
                    reinterpret_cast<HMENU>(static_cast<INT_PTR>(id)), windowClass.hInstance, this);
}

LRESULT CALLBACK Crosshair::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCCREATE) {
        auto* const self =
            static_cast<Crosshair*>(reinterpret_cast<const CREATESTRUCTW*>(lParam)->lpCreateParams);
        self->m_window = window;
        SetWindowLongPtrW(window, GWLP_USERDATA, reinterpret_cast<LONG_PTR>(self));
    }
    auto* const self = reinterpret_cast<Crosshair*>(GetWindowLongPtrW(window, GWLP_USERDATA));
    return self != nullptr ? self->OnMessage(message, wParam, lParam)
                           : DefWindowProcW(window, message, wParam, lParam);
}

LRESULT Crosshair::OnMessage(UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
    case WM_LBUTTONDOWN:
        Begin();
        return 0;
    case WM_MOUSEMOVE:
        if (m_isDragging) {
            m_events.over(MousePosition());
        }
        return 0;
    case WM_LBUTTONUP:
        End(true);
        return 0;
    case WM_CAPTURECHANGED:
        End(false);
        return 0;
    case WM_GETDLGCODE:
        // While it is dragged, Escape is for the cross and not for the window.
        return m_isDragging ? DLGC_WANTALLKEYS : DLGC_BUTTON;
    case WM_KEYDOWN:
        if (m_isDragging && wParam == VK_ESCAPE) {
            End(false);
        } else if (!m_isDragging && wParam == VK_SPACE) {
            m_events.pressed();
        }
        return 0;
    case BM_CLICK:
        m_events.pressed();
        return 0;
    case WM_SETFOCUS:
    case WM_KILLFOCUS:
        InvalidateRect(m_window, nullptr, TRUE);
        return 0;
    case WM_PAINT:
        Paint();
        return 0;
    default:
        return DefWindowProcW(m_window, message, wParam, lParam);
    }
}

void Crosshair::Begin() {
    SetFocus(m_window);
    SetCapture(m_window);
    m_isDragging = true;
    SetCursor(LoadCursorW(nullptr, IDC_CROSS));
    InvalidateRect(m_window, nullptr, TRUE);
}

void Crosshair::End(bool isDrop) {
    if (!m_isDragging) {
        return;
    }
    m_isDragging = false; // first: giving the mouse back comes here again
    ReleaseCapture();
    InvalidateRect(m_window, nullptr, TRUE);
    if (isDrop) {
        m_events.dropped(MousePosition());
    } else {
        m_events.givenUp();
    }
}

// While the cross is on its way, its place is empty.
void Crosshair::Paint() {
    PAINTSTRUCT paint;
    const HDC device = BeginPaint(m_window, &paint);
    RECT area;
    GetClientRect(m_window, &area);
    FillRect(device, &area, GetSysColorBrush(COLOR_WINDOW));
    const int size = std::min<int>(area.right, area.bottom);
    const int thickness = std::max(1, size / 20);
    if (!m_isDragging) {
        const HPEN pen = CreatePen(PS_SOLID, thickness, GetSysColor(COLOR_WINDOWTEXT));
        const HGDIOBJ previousPen = SelectObject(device, pen);
        const HGDIOBJ previousBrush = SelectObject(device, GetStockObject(NULL_BRUSH));
        const int middleX = area.right / 2;
        const int middleY = area.bottom / 2;
        const int radius = size / 4;
        const int reach = size * 2 / 5;
        Ellipse(device, middleX - radius, middleY - radius, middleX + radius + 1, middleY + radius + 1);
        MoveToEx(device, middleX - reach, middleY, nullptr);
        LineTo(device, middleX + reach + 1, middleY);
        MoveToEx(device, middleX, middleY - reach, nullptr);
        LineTo(device, middleX, middleY + reach + 1);
        SelectObject(device, previousBrush);
        SelectObject(device, previousPen);
        DeleteObject(pen);
    }
    FrameRect(device, &area, GetSysColorBrush(COLOR_BTNSHADOW));
    if (GetFocus() == m_window) {
        InflateRect(&area, -2 * thickness, -2 * thickness);
        DrawFocusRect(device, &area);
    }
    EndPaint(m_window, &paint);
}

} // namespace inspector
