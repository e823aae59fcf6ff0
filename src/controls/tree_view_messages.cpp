#include "controls/tree_view_messages.h"

#include <cstddef>
#include <cstring>

#include "hostlink/remote_send.h"

namespace controls {

static_assert(offsetof(TVITEMA, hItem) == 8 && offsetof(TVITEMA, pszText) == 24 &&
              offsetof(TVITEMA, cchTextMax) == 32 && sizeof(TVITEMA) == 56);

HTREEITEM RelatedItem(HWND tree, UINT relation, HTREEITEM item) noexcept {
    const auto related = reinterpret_cast<HTREEITEM>(
        SendMessageA(tree, TVM_GETNEXTITEM, relation, reinterpret_cast<LPARAM>(item)));
    return related != item ? related : nullptr; // a control that answers nonsense would be walked for ever
}

UINT ItemState(HWND tree, HTREEITEM item, UINT mask) noexcept {
    const LRESULT state =
        SendMessageA(tree, TVM_GETITEMSTATE, reinterpret_cast<WPARAM>(item), static_cast<LPARAM>(mask));
    return static_cast<UINT>(state) & mask;
}

void ExpandItem(HWND tree, HTREEITEM item, UINT action) noexcept {
    SendMessageA(tree, TVM_EXPAND, action, reinterpret_cast<LPARAM>(item));
}

void EnsureItemVisible(HWND tree, HTREEITEM item) noexcept {
    SendMessageA(tree, TVM_ENSUREVISIBLE, 0, reinterpret_cast<LPARAM>(item));
}

std::string ItemText(const hostlink::HostWindow& tree, HTREEITEM item) {
    TVITEMA request = {};
    request.mask = TVIF_TEXT;
    request.hItem = item;
    std::string text;
    hostlink::RemoteSendWithString(tree, TVM_GETITEMA, 0, hostlink::AsBlock(request),
                                   offsetof(TVITEMA, pszText), text);
    return text;
}

std::optional<RECT> ItemTextRectangle(const hostlink::HostWindow& tree, HTREEITEM item) {
    constexpr WPARAM kTextOnly = TRUE;
    RECT rectangle = {};
    static_assert(sizeof item <= sizeof rectangle);
    std::memcpy(&rectangle, &item, sizeof item); // the message takes the item where it puts the rectangle
    if (hostlink::RemoteSend(tree, TVM_GETITEMRECT, kTextOnly, hostlink::AsBlock(rectangle)) == 0) {
        return {};
    }
    return rectangle;
}

} // namespace controls
