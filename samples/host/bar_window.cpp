#include "bar_window.h"

#include "bar_layout.h"
#include "bar_popup.h"
#include "frame.h"
#include "watch.h"

#include <algorithm>
#include <commctrl.h>
#include <iterator>
#include <map>
#include <utility>

namespace sample_host {
namespace {

struct Bar {
    std::vector<BarButton> buttons;
    std::vector<RECT> areas;
    bool vertical = false;
    int hot = -1;
    int pressed = -1;
};

std::map<HWND, Bar> bars;

// A command that was toggled is marked, or not, on every bar that has it, those to come included.
std::map<unsigned, bool> marks;

bool IsIndex(const Bar& bar, WPARAM index) {
    return index < bar.buttons.size();
}

int ButtonAt(const Bar& bar, LPARAM position) {
    const POINT point{static_cast<short>(LOWORD(position)), static_cast<short>(HIWORD(position))};
    const auto found =
        std::ranges::find_if(bar.areas, [&](const RECT& area) { return PtInRect(&area, point) != FALSE; });
    const auto index = std::distance(bar.areas.begin(), found);
    return found == bar.areas.end() || bar.buttons[static_cast<std::size_t>(index)].IsSeparator()
               ? -1
               : static_cast<int>(index);
}

void SetHot(HWND window, Bar& bar, int index) {
    if (bar.hot == index)
        return;
    bar.hot = index;
    InvalidateRect(window, nullptr, FALSE);
}

void SetMark(unsigned command, bool marked) {
    marks[command] = marked;
    for (auto& [window, bar] : bars) {
        for (BarButton& button : bar.buttons)
            if (button.command == command)
                button.checked = marked;
        InvalidateRect(window, nullptr, FALSE);
    }
}

void Paint(HWND window, const Bar& bar) {
    PAINTSTRUCT paint;
    const HDC canvas = BeginPaint(window, &paint);
    RECT client;
    GetClientRect(window, &client);
    PaintBar(canvas, client, bar.buttons, bar.areas, bar.vertical, bar.hot);
    EndPaint(window, &paint);
}

// The record that TB_GETBUTTON fills. String index 0 means: no string, so indices count from 1.
TBBUTTON Record(const Bar& bar, std::size_t index) {
    const BarButton& button = bar.buttons[index];
    TBBUTTON record{};
    record.iBitmap = I_IMAGENONE;
    record.idCommand = static_cast<int>(button.command);
    record.fsState =
        static_cast<BYTE>((button.disabled ? TBSTATE_ENABLED : 0) | // inverted, as described above
                          (button.checked ? TBSTATE_CHECKED : 0));
    record.fsStyle =
        static_cast<BYTE>((button.IsSeparator() ? BTNS_SEP : 0) | (button.checkable ? BTNS_CHECK : 0) |
                          (button.submenu.empty() ? 0 : BTNS_DROPDOWN));
    record.iString = button.textByIndex ? static_cast<INT_PTR>(index) + 1 : 0;
    return record;
}

// Answers the length without terminator; the text goes where `target` points, if anywhere.
LRESULT GiveText(const std::string& text, LPARAM target) {
    if (target)
        std::copy_n(text.c_str(), text.size() + 1, reinterpret_cast<char*>(target));
    return static_cast<LRESULT>(text.size());
}

LRESULT TextOfCommand(const Bar& bar, WPARAM command, LPARAM target) {
    const auto found = std::ranges::find(bar.buttons, static_cast<unsigned>(command), &BarButton::command);
    if (command == 0 || found == bar.buttons.end())
        return -1;
    return found->textByIndex ? 0 : GiveText(found->text, target);
}

LRESULT TextOfIndex(const Bar& bar, WPARAM stringIndex, LPARAM target) {
    if (stringIndex == 0 || !IsIndex(bar, stringIndex - 1) || !bar.buttons[stringIndex - 1].textByIndex)
        return -1;
    return GiveText(bar.buttons[stringIndex - 1].text, target);
}

// May destroy the bar: a command closes the popup that it was chosen from.
void Choose(HWND window, Bar& bar, int index) {
    const BarButton& button = bar.buttons[static_cast<std::size_t>(index)];
    if (button.disabled)
        return;
    if (!button.submenu.empty()) {
        RECT area = bar.areas[static_cast<std::size_t>(index)];
        MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&area), 2);
        const POINT corner = bar.vertical ? POINT{area.right, area.top} : POINT{area.left, area.bottom};
        OpenBarPopup(button.submenuKind, corner, button.submenu, window);
        return;
    }
    const unsigned command = button.command;
    if (button.checkable)
        SetMark(command, !button.checked);
    CloseBarPopups();
    PostMessageA(Frame(), WM_COMMAND, command, 0);
}

LRESULT CALLBACK Procedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    const auto known = bars.find(window);
    if (known == bars.end()) // while the window is being made
        return DefWindowProcA(window, message, wParam, lParam);
    Bar& bar = known->second;
    switch (message) {
    case WM_PAINT:
        Paint(window, bar);
        return 0;
    case WM_MOUSEMOVE:
        SetHot(window, bar, ButtonAt(bar, lParam));
        return 0;
    case WM_LBUTTONDOWN:
        bar.pressed = ButtonAt(bar, lParam);
        return 0;
    case WM_LBUTTONUP:
        if (const int pressed = std::exchange(bar.pressed, -1);
            pressed >= 0 && pressed == ButtonAt(bar, lParam))
            Choose(window, bar, pressed);
        return 0;
    case WM_NCDESTROY:
        bars.erase(known);
        break;
    case TB_BUTTONCOUNT:
        return static_cast<LRESULT>(bar.buttons.size());
    case TB_GETBUTTON:
        if (!IsIndex(bar, wParam) || !lParam)
            return FALSE;
        *reinterpret_cast<TBBUTTON*>(lParam) = Record(bar, wParam);
        return TRUE;
    case TB_GETITEMRECT:
        if (!IsIndex(bar, wParam) || !lParam)
            return FALSE;
        *reinterpret_cast<RECT*>(lParam) = bar.areas[wParam];
        return TRUE;
    case TB_GETBUTTONTEXTA:
        return TextOfCommand(bar, wParam, lParam);
    case TB_GETSTRINGA:
        return TextOfIndex(bar, wParam, lParam);
    case TB_GETHOTITEM:
        return bar.hot;
    default:
        break;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

} // namespace

HWND CreateBar(HWND parent, const BarSpec& spec) {
    RegisterHostClass(spec.className, Procedure);
    const HWND window =
        AddControl(parent, {.className = spec.className, .text = spec.caption, .id = spec.id});
    std::vector<BarButton> buttons = spec.buttons;
    for (BarButton& button : buttons)
        if (const auto mark = marks.find(button.command); mark != marks.end())
            button.checked = mark->second;
    bars[window] = {buttons, LayOutBar(buttons, spec.vertical), spec.vertical};
    return window;
}

SIZE NaturalSize(HWND bar) {
    SIZE size{};
    for (const RECT& area : bars.at(bar).areas) {
        size.cx = std::max(size.cx, area.right + 2);
        size.cy = std::max(size.cy, area.bottom + 2);
    }
    return size;
}

bool WalkBar(HWND window, WPARAM virtualKey) {
    Bar& bar = bars.at(window);
    const int count = static_cast<int>(bar.buttons.size());
    const auto walk = [&](int from, int step) {
        for (int tries = 0, index = from; tries < count; ++tries, index += step) {
            const int wrapped = (index % count + count) % count;
            if (!bar.buttons[static_cast<std::size_t>(wrapped)].IsSeparator())
                return SetHot(window, bar, wrapped);
        }
    };
    switch (virtualKey) {
    case VK_DOWN:
        walk(bar.hot + 1, 1);
        return true;
    case VK_UP:
        walk(bar.hot < 0 ? count - 1 : bar.hot - 1, -1);
        return true;
    case VK_HOME:
        walk(0, 1);
        return true;
    case VK_END:
        walk(count - 1, -1);
        return true;
    case VK_RETURN:
        if (bar.hot >= 0)
            Choose(window, bar, bar.hot);
        return true;
    default:
        return false;
    }
}

} // namespace sample_host
