#include "input/mouse_event.h"

#include <cstdint>
#include <optional>
#include <vector>

#include "engine/window_geometry.h"
#include "engine/window_relations.h"
#include "hostlink/script_holds.h"
#include "hostlink/window_kind.h"
#include "input/desktop_mapping.h"
#include "input/mouse_block.h"
#include "input/mouse_button.h"

namespace input {

namespace {

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

INPUT Record(DWORD flags) noexcept {
    INPUT record = {};
    record.type = INPUT_MOUSE;
    record.mi.dwFlags = flags;
    return record;
}

INPUT RecordAt(const ScreenPoint& point, DWORD buttonFlag) noexcept {
    const RECT desktop = engine::WindowRectangle(GetDesktopWindow());
    INPUT record = Record(MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | buttonFlag);
    record.mi.dx = ToAbsoluteInput(point.x, desktop.right - desktop.left);
    record.mi.dy = ToAbsoluteInput(point.y, desktop.bottom - desktop.top);
    return record;
}

void Send(std::span<INPUT> records) {
    LetMouseThrough();
    SendInput(static_cast<UINT>(records.size()), records.data(), sizeof(INPUT));
    BlockMouseAfterInput();
}

// A program can have the foreground and still lie behind another one, which would get the input.
void BringOutFromBehindOthers(HWND window, const ScreenPoint& point) noexcept {
    const HWND there = WindowFromPoint({static_cast<LONG>(point.x), static_cast<LONG>(point.y)});
    if (there != nullptr && there != GetDesktopWindow() &&
        hostlink::ProcessOf(there) != hostlink::ProcessOf(window)) {
        if (const HWND root = engine::RootToRaise(window)) {
            BringWindowToTop(root);
        }
    }
}

// The buttons that stay pressed behind a call: bit n is the button with code n.
unsigned heldButtons = 0;

void NoteAction(int button, ButtonAction last) noexcept {
    if (!ButtonOfCode(button).IsKnown()) {
        return;
    }
    const unsigned bit = 1u << button;
    heldButtons = last == ButtonAction::Press ? heldButtons | bit : heldButtons & ~bit;
    hostlink::NoteHeldButtons(heldButtons);
}

void MoveCursor(const ScreenPoint& point) {
    INPUT record = RecordAt(point, 0);
    Send({&record, 1});
}

} // namespace

void SendMouseEvents(HWND window, int button, std::span<const ButtonAction> actions, int x, int y) {
    const MouseButton flags = ButtonOfCode(button);
    const auto point = ToScreen(window, x, y);
    if (!point && actions.front() == ButtonAction::Press) {
        return;
    }
    if (point && actions.front() == ButtonAction::Press) {
        BringOutFromBehindOthers(window, *point);
    }
    std::vector<INPUT> records;
    for (const ButtonAction action : actions) {
        const DWORD flag = action == ButtonAction::Press ? flags.pressFlag : flags.releaseFlag;
        records.push_back(point ? RecordAt(*point, flag) : Record(flag));
    }
    Send(records);
    NoteAction(button, actions.back());
}

void ReleaseButtons(unsigned buttons) noexcept {
    for (int code = 1; code <= kMiddleButton; ++code) {
        if ((buttons & 1u << code) != 0) {
            INPUT record = Record(ButtonOfCode(code).releaseFlag);
            SendInput(1, &record, sizeof record);
        }
    }
}

void MoveCursorInWindow(HWND window, int x, int y) {
    if (const auto point = ToScreen(window, x, y)) {
        MoveCursor(*point);
    }
}

void MoveCursorOnScreen(int x, int y) {
    MoveCursor({x, y});
}

} // namespace input
