#include "engine/ghBaseWindow.h"

#include "engine/activation.h"
#include "engine/fit_size.h"
#include "engine/synchronise.h"
#include "engine/window_geometry.h"

namespace {

constexpr int kTextCapacity = 260;

// The notification of an edit control to its parent. Posted for every kind of control, so that dialogs
// which listen for edit notifications see a typed value.
void PostEditNotification(HWND parent, HWND control, WORD notification) noexcept {
    const auto id = static_cast<WORD>(GetWindowLongPtrA(control, GWLP_ID));
    PostMessageA(parent, WM_COMMAND, MAKEWPARAM(id, notification), reinterpret_cast<LPARAM>(control));
}

} // namespace

ghBaseWindow::ghBaseWindow(HWND window) noexcept
    : m_host{window, window == nullptr ? 0 : GetWindowThreadProcessId(window, nullptr)} {}

std::string ghBaseWindow::Text() const {
    char text[kTextCapacity] = "";
    SendMessageA(Window(), WM_GETTEXT, kTextCapacity, reinterpret_cast<LPARAM>(text));
    text[kTextCapacity - 1] = '\0';
    return text;
}

void ghBaseWindow::SetText(const std::string& text, bool focusFirst) {
    if (focusFirst) {
        engine::Activate(*this);
    }
    SendMessageA(Window(), WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text.c_str()));
    if (const HWND parent = GetParent(Window())) {
        PostEditNotification(parent, Window(), EN_UPDATE);
        PostEditNotification(parent, Window(), EN_CHANGE);
    }
    engine::Synchronise(*this);
}

bool ghBaseWindow::Visible() const noexcept {
    return IsWindowVisible(Window()) != FALSE;
}

bool ghBaseWindow::Enabled() const noexcept {
    return IsWindowEnabled(Window()) != FALSE;
}

int ghBaseWindow::Width() const noexcept {
    return engine::ClientSize(Window()).width;
}

int ghBaseWindow::Height() const noexcept {
    return engine::ClientSize(Window()).height;
}

int ghBaseWindow::Left() const noexcept {
    return engine::WindowRectangle(Window()).left;
}

int ghBaseWindow::Top() const noexcept {
    return engine::WindowRectangle(Window()).top;
}

int ghBaseWindow::ControlID() const noexcept {
    return GetDlgCtrlID(Window());
}

ghBaseWindow ghBaseWindow::Parent() const noexcept {
    return ghBaseWindow(GetParent(Window()));
}

void ghBaseWindow::Position(int x, int y) {
    const engine::Size size = engine::EdgeCountedSize(engine::WindowRectangle(Window()));
    MoveWindow(Window(), x, y, size.width, size.height, TRUE);
}

void ghBaseWindow::PositionWithMovingMessage(int x, int y) {
    const engine::Size size = engine::EdgeCountedSize(engine::WindowRectangle(Window()));
    MoveWindow(Window(), x, y, size.width, size.height, TRUE);
    Send(WM_NCLBUTTONDOWN, HTCAPTION, engine::PackPoint(x, y));
    SetCursorPos(x, y);
    RECT rectangle = {x, y, x + size.width, y + size.height};
    Send(WM_MOVING, 0, reinterpret_cast<LPARAM>(&rectangle));
}

bool ghBaseWindow::FitSize(int width, int height) {
    return engine::FitClientArea(*this, {width, height});
}

bool ghBaseWindow::SetFocus() {
    return engine::Activate(*this);
}

void ghBaseWindow::Close() {
    Post(WM_CLOSE, 0, 0);
}

bool ghBaseWindow::Command(int command) {
    return Post(WM_COMMAND, static_cast<WPARAM>(command), 0);
}

LRESULT ghBaseWindow::Send(UINT message, WPARAM wParam, LPARAM lParam) {
    const LRESULT result = SendMessageA(Window(), message, wParam, lParam);
    engine::Synchronise(*this);
    return result;
}

bool ghBaseWindow::Post(UINT message, WPARAM wParam, LPARAM lParam) {
    // A null handle would post to the calling thread itself.
    const bool posted = IsValid() && PostMessageA(Window(), message, wParam, lParam);
    engine::Synchronise(*this);
    return posted;
}

bool ghBaseWindow::PostToFocus(UINT message, WPARAM wParam, LPARAM lParam) const noexcept {
    GUITHREADINFO info = {};
    info.cbSize = sizeof info;
    // Thread id 0 would ask about the foreground thread.
    const bool known = ThreadId() != 0 && GetGUIThreadInfo(ThreadId(), &info);
    const HWND receiver = known && info.hwndFocus != nullptr ? info.hwndFocus : Window();
    return receiver != nullptr && PostMessageA(receiver, message, wParam, lParam);
}
