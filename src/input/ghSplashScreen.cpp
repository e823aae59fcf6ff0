#include "input/ghSplashScreen.h"

#include <utility>

#include "engine/window_geometry.h"
#include "hostlink/module_instance.h"

namespace {

constexpr char kClassName[] = "SplashScreen";
constexpr WORD kNoticeBitmap = 5925;

// The notice that is shown; its window procedure deletes it.
constinit ghSplashScreen* shownNotice = nullptr;

void RegisterWindowClass(WNDPROC procedure) noexcept {
    WNDCLASSEXA windowClass = {};
    windowClass.cbSize = sizeof windowClass;
    windowClass.lpfnWndProc = procedure;
    windowClass.hInstance = hostlink::ModuleInstance();
    windowClass.hCursor = LoadCursorA(nullptr, reinterpret_cast<LPCSTR>(IDC_ARROW));
    windowClass.lpszClassName = kClassName;
    RegisterClassExA(&windowClass); // fails when it is registered already
}

// A device context that holds a bitmap for drawing from it.
class BitmapSource {
public:
    BitmapSource(HDC target, HBITMAP bitmap) noexcept
        : m_context(CreateCompatibleDC(target)), m_previous(SelectObject(m_context, bitmap)) {}
    ~BitmapSource() {
        SelectObject(m_context, m_previous);
        DeleteDC(m_context);
    }
    BitmapSource(const BitmapSource&) = delete;
    BitmapSource& operator=(const BitmapSource&) = delete;

    HDC Context() const noexcept { return m_context; }

private:
    HDC m_context;
    HGDIOBJ m_previous;
};

bool EndsNotice(UINT message) noexcept {
    switch (message) {
    case WM_KEYDOWN:
    case WM_SYSKEYDOWN:
    case WM_LBUTTONDOWN:
    case WM_RBUTTONDOWN:
    case WM_MBUTTONDOWN:
    case WM_NCLBUTTONDOWN:
    case WM_NCRBUTTONDOWN:
    case WM_NCMBUTTONDOWN:
    case WM_CLOSE: // another thread asks for it
        return true;
    default:
        return false;
    }
}

void DestroyAndUpdate(HWND window, HWND parent) noexcept {
    DestroyWindow(window);
    if (IsWindow(parent)) {
        UpdateWindow(parent);
    }
}

} // namespace

ghSplashScreen::ghSplashScreen(HWND parent) noexcept
    : m_parent(parent), m_bitmap(LoadBitmapA(hostlink::ModuleInstance(), MAKEINTRESOURCEA(kNoticeBitmap))) {
    BITMAP bitmap = {};
    if (m_bitmap && GetObjectA(m_bitmap.get(), sizeof bitmap, &bitmap) != 0) {
        m_size = {bitmap.bmWidth, bitmap.bmHeight};
    }
}

void ghSplashScreen::Show(HWND parent) {
    if (shownNotice != nullptr) {
        return;
    }
    RegisterWindowClass(Procedure);
    auto notice = std::make_unique<ghSplashScreen>(parent);
    if (!notice->Create()) {
        return;
    }
    shownNotice = notice.release();
    shownNotice->Appear();
}

void ghSplashScreen::Destroy() noexcept {
    const ghSplashScreen* notice = shownNotice;
    if (notice == nullptr) {
        return;
    }
    if (GetWindowThreadProcessId(notice->m_window, nullptr) == GetCurrentThreadId()) {
        DestroyAndUpdate(notice->m_window, notice->m_parent);
    } else {
        PostMessageA(notice->m_window, WM_CLOSE, 0, 0);
    }
}

bool ghSplashScreen::Create() noexcept {
    const RECT corner = engine::WindowRectangle(m_parent == nullptr ? GetDesktopWindow() : m_parent);
    // Shown later: a window that is created visible would be activated.
    m_window = CreateWindowExA(WS_EX_NOACTIVATE, kClassName, "", WS_POPUP, corner.right - m_size.cx,
                               corner.bottom - m_size.cy, m_size.cx, m_size.cy, m_parent, nullptr,
                               hostlink::ModuleInstance(), nullptr);
    return m_window != nullptr;
}

void ghSplashScreen::Appear() const noexcept {
    const HWND window = m_window;
    if (m_parent == nullptr) {
        SetWindowPos(window, HWND_TOPMOST, 0, 0, 0, 0, SWP_NOMOVE | SWP_NOSIZE | SWP_NOACTIVATE);
    }
    ShowWindow(window, SW_SHOWNOACTIVATE);
    UpdateWindow(window);
    InvalidateRect(window, nullptr, FALSE);
    MSG message;
    while (PeekMessageA(&message, window, 0, 0, PM_REMOVE)) {
        DispatchMessageA(&message);
    }
}

void ghSplashScreen::Paint() const noexcept {
    PAINTSTRUCT paint;
    const HDC context = BeginPaint(m_window, &paint);
    if (m_bitmap) {
        const BitmapSource source(context, m_bitmap.get());
        BitBlt(context, 0, 0, m_size.cx, m_size.cy, source.Context(), 0, 0, SRCCOPY);
    }
    EndPaint(m_window, &paint);
}

LRESULT CALLBACK ghSplashScreen::Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept {
    const ghSplashScreen* notice = shownNotice;
    if (notice == nullptr || notice->m_window != window) {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    if (EndsNotice(message)) {
        DestroyAndUpdate(window, notice->m_parent);
        return 0;
    }
    switch (message) {
    case WM_PAINT:
        notice->Paint();
        return 0;
    case WM_NCDESTROY:
        std::unique_ptr<ghSplashScreen>(std::exchange(shownNotice, nullptr));
        [[fallthrough]];
    default:
        return DefWindowProcA(window, message, wParam, lParam);
    }
}
