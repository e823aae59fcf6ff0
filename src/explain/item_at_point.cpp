#include "explain/item_at_point.h"

#include <algorithm>
#include <cmath>
#include <string_view>

#include "controls/host_control_search.h"
#include "engine/dpi_scope.h"
#include "engine/window_finders.h"
#include "explain/item_finders.h"
#include "explain/utf8.h"
#include "explain/window_facts.h"
#include "hostlink/host_classes.h"
#include "hostlink/host_text.h"

namespace explain {

namespace {

// Points of the calling thread's pixels and of the window's program, told by the window's place in both.
class PixelMapping {
public:
    PixelMapping(const RECT& from, const RECT& to) noexcept : m_from(from), m_to(to) {}

    POINT Map(POINT point) const noexcept {
        return {Map(point.x, m_from.left, m_from.right, m_to.left, m_to.right),
                Map(point.y, m_from.top, m_from.bottom, m_to.top, m_to.bottom)};
    }
    RECT MapBack(const RECT& rectangle) const noexcept {
        const PixelMapping back(m_to, m_from);
        const POINT first = back.Map({rectangle.left, rectangle.top});
        const POINT last = back.Map({rectangle.right, rectangle.bottom});
        return {first.x, first.y, last.x, last.y};
    }

private:
    static LONG Map(LONG value, LONG from, LONG fromEnd, LONG to, LONG toEnd) noexcept {
        if (fromEnd - from == toEnd - to || fromEnd == from) {
            return value - from + to;
        }
        return to + static_cast<LONG>(
                        std::floor(static_cast<double>(value - from) * (toEnd - to) / (fromEnd - from)));
    }

    RECT m_from;
    RECT m_to;
};

RECT WindowRectangle(HWND window) noexcept {
    RECT rectangle = {};
    GetWindowRect(window, &rectangle);
    return rectangle;
}

FoundItem Find(HWND control, POINT point) {
    const hostlink::WindowClass windowClass(control);
    const auto is = [&](std::string_view part) {
        return windowClass.Name().find(part) != std::string_view::npos;
    };
    const hostlink::HostWindow host = {control, GetWindowThreadProcessId(control, nullptr)};
    if (is(engine::kTreeView.className)) {
        return TreeItemAt(host, point);
    }
    if (is(engine::kListView.className)) {
        return ListViewCellAt(host, point);
    }
    if (is("ComboLBox")) {
        return ComboListItemAt(control, point);
    }
    if (is(engine::kListBox.className)) {
        return ListItemAt(control, point);
    }
    if (is("SysTabControl32") || is("BCGTab") || is("BCGPTabWnd") || is("GXTabBeam")) {
        return TabAt(host, point);
    }
    if (is("ToolbarWindow32") || hostlink::IsHostBarClass(windowClass)) {
        return ToolBarButtonAt(host, point);
    }
    if (hostlink::IsMenuClass(windowClass)) {
        return PopupMenuItemAt(control, point);
    }
    if (is(engine::kOptionTree.className)) {
        return OptionTreeItemAt(host, point);
    }
    return controls::IsGrid(control) ? GridCellAt(host, point) : MenuBarItemAt(control, point);
}

} // namespace

bool CanBeWritten(const std::string& text) {
    return !text.empty() && hostlink::ToAnsi(ToUtf16(AnsiToUtf8(text))) == text;
}

std::optional<ItemAtPoint> ItemOf(HWND control, POINT screenPoint) {
    if (!IsWindow(control) || !Answers(control)) {
        return std::nullopt;
    }
    const RECT here = WindowRectangle(control);
    const engine::DpiScope scope(engine::DpiAwarenessOf(control));
    const PixelMapping mapping(here, WindowRectangle(control));
    FoundItem item = Find(control, mapping.Map(screenPoint));
    if (item) {
        item->rectangle = mapping.MapBack(item->rectangle);
        item->window = item->window != nullptr ? item->window : control;
    }
    return item;
}

} // namespace explain
