#include "group_combo.h"

#include <ghosthand/host_contract.h>

#include <optional>
#include <string_view>

namespace sample_host {
namespace {

namespace group_combo = ghosthand::host_contract::group_combo;

constexpr LPARAM kHeadingMark = 1; // item data of a heading
constexpr int kNone = -1;

bool IsHeading(HWND combo, int index) {
    return SendMessageA(combo, CB_GETITEMDATA, static_cast<WPARAM>(index), 0) == kHeadingMark;
}

int Count(HWND combo) {
    return static_cast<int>(SendMessageA(combo, CB_GETCOUNT, 0, 0));
}

int HeadingOf(HWND combo, int index) {
    if (index >= Count(combo))
        return kNone;
    while (index >= 0 && !IsHeading(combo, index))
        --index;
    return index < 0 ? kNone : index;
}

std::string TextOfItem(HWND combo, int index) {
    const LRESULT length = SendMessageA(combo, CB_GETLBTEXTLEN, static_cast<WPARAM>(index), 0);
    if (length <= 0)
        return {};
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    SendMessageA(combo, CB_GETLBTEXT, static_cast<WPARAM>(index), reinterpret_cast<LPARAM>(text.data()));
    text.resize(static_cast<std::size_t>(length));
    return text;
}

// Takes the text up to the next NUL off the query; no value when there is no NUL left.
std::optional<std::string_view> TakeName(std::string_view& query) {
    const std::size_t end = query.find('\0');
    if (end == query.npos)
        return std::nullopt;
    const std::string_view name = query.substr(0, end);
    query.remove_prefix(end + 1);
    return name;
}

// Both names are matched whole and case-sensitively.
int FindByNames(HWND combo, std::string_view query) {
    const auto heading = TakeName(query);
    const auto item = TakeName(query);
    if (!heading || !item)
        return kNone;
    for (int index = 0; index < Count(combo); ++index)
        if (!IsHeading(combo, index) && TextOfItem(combo, index) == *item &&
            TextOfItem(combo, HeadingOf(combo, index)) == *heading)
            return index;
    return kNone;
}

// A user who picks a heading gets the first item below it.
void LeaveHeading(HWND combo) {
    const auto selected = static_cast<int>(SendMessageA(combo, CB_GETCURSEL, 0, 0));
    if (selected >= 0 && IsHeading(combo, selected))
        SendMessageA(combo, CB_SETCURSEL, static_cast<WPARAM>(selected) + 1, 0);
}

LRESULT OnMessage(HWND combo, UINT message, WPARAM wParam, LPARAM lParam, const NextProcedure& next) {
    switch (message) {
    case group_combo::kHeadingOfItem:
        return HeadingOf(combo, static_cast<int>(wParam));
    case group_combo::kFindByNames:
        // The query lies in memory of this program; a length beyond that of the exchange is nonsense.
        if (!lParam || wParam > ghosthand::host_contract::kTextCapacity)
            return kNone;
        return FindByNames(combo, {reinterpret_cast<const char*>(lParam), wParam});
    case WM_COMMAND: { // of the list, before the parent hears of it
        LeaveHeading(combo);
        const LRESULT result = next(combo, message, wParam, lParam);
        LeaveHeading(combo);
        return result;
    }
    case WM_KEYDOWN:
    case WM_MOUSEWHEEL: {
        const LRESULT result = next(combo, message, wParam, lParam);
        LeaveHeading(combo);
        return result;
    }
    default:
        break;
    }
    return next(combo, message, wParam, lParam);
}

} // namespace

HWND AddGroupCombo(HWND parent, Area area, int id, const std::vector<GroupComboItem>& items) {
    const HWND combo = AddControl(parent, {.className = "ComboBox",
                                           .style = CBS_DROPDOWNLIST | WS_VSCROLL | WS_TABSTOP,
                                           .area = area,
                                           .id = id,
                                           .behaviour = OnMessage});
    for (const GroupComboItem& item : items) {
        const LRESULT index =
            SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(item.text.c_str()));
        SendMessageA(combo, CB_SETITEMDATA, static_cast<WPARAM>(index), item.isHeading ? kHeadingMark : 0);
    }
    SendMessageA(combo, CB_SETCURSEL, 0, 0);
    LeaveHeading(combo);
    return combo;
}

} // namespace sample_host
