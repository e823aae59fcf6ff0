// The items of each kind of control below a point. The calling thread has the DPI awareness of the control;
// points and rectangles are in screen coordinates. The control's program has answered a moment ago.
#pragma once

#include <string>
#include <utility>

#include "explain/item_at_point.h"
#include "hostlink/host_window.h"

namespace explain {

using FoundItem = std::optional<ItemAtPoint>;

// How long an item is looked for, and how long names are compared before the item is told by its number.
class Patience {
public:
    bool IsOver() const noexcept { return GetTickCount64() - m_begin > 1000; }
    bool IsOverForNames() const noexcept { return GetTickCount64() - m_begin > 500; }

private:
    ULONGLONG m_begin = GetTickCount64();
};

FoundItem TreeItemAt(const hostlink::HostWindow& tree, POINT point);
FoundItem ListViewCellAt(const hostlink::HostWindow& list, POINT point);
FoundItem ListItemAt(HWND listBox, POINT point);
FoundItem ComboListItemAt(HWND list, POINT point);
FoundItem TabAt(const hostlink::HostWindow& tabs, POINT point);
FoundItem ToolBarButtonAt(const hostlink::HostWindow& bar, POINT point);
// None where the host does not know the request (ghosthand/host_contract.h).
FoundItem GridCellAt(const hostlink::HostWindow& grid, POINT point);
FoundItem OptionTreeItemAt(const hostlink::HostWindow& tree, POINT point);
FoundItem PopupMenuItemAt(HWND popup, POINT point);
// None for a window without a menu bar.
FoundItem MenuBarItemAt(HWND window, POINT point);

inline POINT ToClient(HWND window, POINT screen) noexcept {
    ScreenToClient(window, &screen);
    return screen;
}
inline RECT ToScreen(HWND window, RECT client) noexcept {
    MapWindowPoints(window, nullptr, reinterpret_cast<POINT*>(&client), 2);
    return client;
}

template <class... Values>
Step MakeStep(std::string member, Values... values) {
    Step step;
    step.member = std::move(member);
    (step.arguments.emplace_back(std::move(values)), ...);
    return step;
}
template <class... Values>
Call OneStep(std::string member, Values... values) {
    Call steps;
    steps.push_back(MakeStep(std::move(member), std::move(values)...));
    return steps;
}

// Whether a script that writes the text, which is in the system code page, means just this text.
bool CanBeWritten(const std::string& text);

} // namespace explain
