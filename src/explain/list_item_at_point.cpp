#include <cstddef>
#include <functional>

#include <windows.h>

#include <commctrl.h>

#include "controls/ghComboBox.h"
#include "controls/ghGroupCombo.h"
#include "controls/ghListBox.h"
#include "controls/ghListView.h"
#include "controls/ghTabControl.h"
#include "controls/host_control_search.h"
#include "controls/list_view_messages.h"
#include "engine/enumerate.h"
#include "engine/prefix_match.h"
#include "explain/item_finders.h"
#include "explain/utf8.h"
#include "ghosthand/host_contract.h"
#include "hostlink/remote_send.h"
#include "hostlink/window_class.h"
#include "hostlink/window_kind.h"
#include "inhouse/dlgkit.h"

namespace explain {

namespace {

static_assert(offsetof(LVHITTESTINFO, iItem) == 12 && offsetof(LVHITTESTINFO, iSubItem) == 16 &&
              sizeof(LVHITTESTINFO) == 24);

// Whether a search by the whole text of an item finds this item: the first one that begins so counts.
template <class List>
bool IsFoundByName(const List& list, int index, const std::string& text) {
    if (!CanBeWritten(text)) {
        return false;
    }
    const Patience patience;
    for (int before = 0; before < index; ++before) {
        if (patience.IsOverForNames() || engine::StartsWith(list.GetItem(before), text)) {
            return false;
        }
    }
    return true;
}

template <class List>
Call StepToItem(const List& list, int index, const std::string& text) {
    return IsFoundByName(list, index, text) ? OneStep("SelectItemByName", AnsiToUtf8(text))
                                            : OneStep("SelectItem", std::int64_t{index});
}

// In client coordinates; none for an item that has none.
std::optional<RECT> ReadRectangle(const hostlink::HostWindow& control, UINT message, int index,
                                  RECT request = {}) {
    return hostlink::RemoteSend(control, message, static_cast<WPARAM>(index), hostlink::AsBlock(request)) != 0
               ? std::optional(request)
               : std::nullopt;
}

RECT CellRectangle(const hostlink::HostWindow& list, int row, int column) {
    if (column == 0) {
        return controls::ListItemLabel(list, row);
    }
    RECT request = {};
    request.left = LVIR_BOUNDS; // the message takes these where it puts the rectangle
    request.top = column;
    return ReadRectangle(list, LVM_GETSUBITEMRECT, row, request).value_or(RECT{});
}

// The item of a list box at the point, and its rectangle in client coordinates.
std::optional<std::pair<int, RECT>> HitListItem(HWND listBox, POINT client) noexcept {
    const LRESULT nearest = SendMessageA(listBox, LB_ITEMFROMPOINT, 0, MAKELPARAM(client.x, client.y));
    const int index = LOWORD(nearest);
    RECT rectangle = {};
    if (HIWORD(nearest) != 0 ||
        static_cast<int>(SendMessageA(listBox, LB_GETITEMRECT, static_cast<WPARAM>(index),
                                      reinterpret_cast<LPARAM>(&rectangle))) == LB_ERR ||
        !PtInRect(&rectangle, client)) {
        return std::nullopt; // the nearest item only, or one whose number does not fit into the answer
    }
    return std::pair(index, rectangle);
}

bool IsCombo(HWND window) noexcept {
    const hostlink::WindowClass windowClass(window);
    // The extended kind is a combo box around another one, which has the list.
    return windowClass.Name().find("ComboBox") != std::string_view::npos &&
           windowClass.Name().find("ComboBoxEx") == std::string_view::npos;
}

// The combo box that a list belongs to: its parent, else the one of the thread that has its list open.
HWND ComboOf(HWND list) {
    if (const HWND parent = GetAncestor(list, GA_PARENT); IsCombo(parent)) {
        return parent;
    }
    const DWORD threadId = GetWindowThreadProcessId(list, nullptr);
    HWND found = nullptr;
    engine::EnumerateWindows(nullptr, [&](HWND top) {
        if (GetWindowThreadProcessId(top, nullptr) == threadId && IsWindowVisible(top)) {
            engine::EnumerateWindows(top, [&](HWND window) {
                const bool isOpen = IsCombo(window) && IsWindowVisible(window) &&
                                    SendMessageA(window, CB_GETDROPPEDSTATE, 0, 0) != 0;
                found = isOpen ? window : found;
                return !isOpen;
            });
        }
        return found == nullptr;
    });
    return found;
}

// A heading cannot be chosen.
Call StepToGroupItem(const ghGroupCombo& combo, int index) {
    namespace group_combo = ghosthand::host_contract::group_combo;
    const auto headingOf = [&](int item) {
        return static_cast<int>(
            SendMessageA(combo.Window(), group_combo::kHeadingOfItem, static_cast<WPARAM>(item), 0));
    };
    const int heading = headingOf(index);
    if (heading == index) {
        return {};
    }
    const std::string text = combo.ItemText(index);
    const std::string headingText = combo.HeadingOfItem(index);
    std::string query = dkGroupComboHelpers::pack_query({headingText, text});
    const auto answer = hostlink::TryRemoteSend(combo.Host(), group_combo::kFindByNames, query.size(),
                                                std::as_writable_bytes(std::span(query)));
    if (CanBeWritten(text) && CanBeWritten(headingText) && answer && static_cast<int>(*answer) == index) {
        return OneStep("SelectItemByName", AnsiToUtf8(headingText), AnsiToUtf8(text));
    }
    return OneStep("SelectItem", std::int64_t{index});
}

} // namespace

FoundItem ListViewCellAt(const hostlink::HostWindow& host, POINT point) {
    LVHITTESTINFO hit = {};
    hit.pt = ToClient(host.window, point);
    hit.iItem = -1;
    hostlink::RemoteSend(host, LVM_SUBITEMHITTEST, 0, hostlink::AsBlock(hit));
    const bool hasColumns = (hostlink::WindowStyle(host.window) & LVS_TYPEMASK) == LVS_REPORT;
    const int column = hasColumns ? hit.iSubItem : 0;
    if (hit.iItem < 0 || column < 0) {
        return std::nullopt;
    }
    const RECT rectangle = CellRectangle(host, hit.iItem, column);
    if ((hit.flags & LVHT_ONITEM) == 0 && !PtInRect(&rectangle, hit.pt)) {
        return std::nullopt;
    }
    const ghListView list(host.window);
    const std::string text = list.GetSubItem(hit.iItem, column);
    ItemAtPoint found;
    found.kind = "list view cell";
    found.text = AnsiToUtf8(text);
    found.steps = column == 0 ? StepToItem(list, hit.iItem, text)
                              : OneStep("GetSubItem", std::int64_t{hit.iItem}, std::int64_t{column});
    found.rectangle = ToScreen(host.window, rectangle);
    return found;
}

FoundItem ListItemAt(HWND listBox, POINT point) {
    const auto hit = HitListItem(listBox, ToClient(listBox, point));
    if (!hit) {
        return std::nullopt;
    }
    const ghListBox list(listBox);
    const std::string text = list.GetItem(hit->first);
    return ItemAtPoint{"list item", AnsiToUtf8(text), StepToItem(list, hit->first, text),
                       ToScreen(listBox, hit->second)};
}

FoundItem ComboListItemAt(HWND list, POINT point) {
    const auto hit = HitListItem(list, ToClient(list, point));
    const HWND window = hit ? ComboOf(list) : nullptr;
    if (window == nullptr) {
        return std::nullopt;
    }
    const ghComboBox combo(window);
    const std::string text = combo.GetItem(hit->first);
    Call steps = controls::IsGroupCombo(window) ? StepToGroupItem(ghGroupCombo(window), hit->first)
                                                : StepToItem(combo, hit->first, text);
    return ItemAtPoint{"list item", AnsiToUtf8(text), std::move(steps), ToScreen(list, hit->second), window};
}

FoundItem TabAt(const hostlink::HostWindow& host, POINT point) {
    // The host's own kinds know the rectangles, not the hit test.
    const Patience patience;
    const ghTabControl tabs(host.window);
    const POINT client = ToClient(host.window, point);
    const int count = tabs.ItemsCount();
    for (int index = 0; index < count && !patience.IsOver(); ++index) {
        const auto rectangle = ReadRectangle(host, TCM_GETITEMRECT, index);
        if (rectangle && PtInRect(&*rectangle, client)) {
            const std::string text = tabs.GetItem(index);
            return ItemAtPoint{"tab", AnsiToUtf8(text), StepToItem(tabs, index, text),
                               ToScreen(host.window, *rectangle)};
        }
    }
    return std::nullopt;
}

} // namespace explain
