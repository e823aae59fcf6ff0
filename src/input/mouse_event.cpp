#include "input/mouse_event.h"

#include <cstdint>
#include <optional>

#include "engine/window_geometry.h"
#include "input/desktop_mapping.h"
#include "input/mouse_block.h"
#include "input/mouse_button.h"

namespace input {

namespace {

constexpr int kNoButton = 0;

struct ScreenPoint {
    std::int64_t x; // wide enough for any client point of any window
    std::int64_t y;
};

std::optional<ScreenPoint> ToScreen(HWND window, int x, int y) noexcept {
    WINDOWINFO info = {};
    info.cbSize = sizeof info;
    if (!GetWindowInfo(window, &info)) {
        return std::nullopt;
    }
    return ScreenPoint{std::int64_t{info.rcClient.left} + x, std::int64_t{info.rcClient.top} + y};
}

void SendRecord(const ScreenPoint& point, DWORD buttonFlag) {
    const RECT desktop = engine::WindowRectangle(GetDesktopWindow());
    INPUT record = {};
    record.type = INPUT_MOUSE;
    record.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | buttonFlag;
    record.mi.dx = ToAbsoluteInput(point.x, desktop.right - desktop.left);
    record.mi.dy = ToAbsoluteInput(point.y, desktop.bottom - desktop.top);
    LetMouseThrough();
    SendInput(1, &record, sizeof record);
    BlockMouseAfterInput();
}

} // namespace

void SendMouseEvent(HWND window, int button, bool press, int x, int y, bool clientRelative) {
    const MouseButton record = ButtonOfCode(button);
    if (const auto point = clientRelative ? ToScreen(window, x, y) : ScreenPoint{x, y}) {
        SendRecord(*point, press ? record.pressFlag : record.releaseFlag);
    }
}

void MoveCursorInWindow(HWND window, int x, int y) {
    SendMouseEvent(window, kNoButton, true, x, y, true);
}

void MoveCursorOnScreen(int x, int y) {
    SendMouseEvent(nullptr, kNoButton, true, x, y, false);
}

} // namespace input
