#include "controls/list_view_messages.h"

#include <cstddef>

#include "hostlink/remote_send.h"

namespace controls {

static_assert(offsetof(LVITEMA, iItem) == 4 && offsetof(LVITEMA, iSubItem) == 8 &&
              offsetof(LVITEMA, state) == 12 && offsetof(LVITEMA, stateMask) == 16 &&
              offsetof(LVITEMA, pszText) == 24 && offsetof(LVITEMA, cchTextMax) == 32 &&
              sizeof(LVITEMA) == 88);

int ListItemsCount(HWND list) noexcept {
    return static_cast<int>(SendMessageA(list, LVM_GETITEMCOUNT, 0, 0));
}

UINT ListItemState(HWND list, int index, UINT mask) noexcept {
    const LRESULT state =
        SendMessageA(list, LVM_GETITEMSTATE, static_cast<WPARAM>(index), static_cast<LPARAM>(mask));
    return static_cast<UINT>(state) & mask;
}

void SetListItemState(const hostlink::HostWindow& list, int index, UINT mask, UINT state) {
    LVITEMA request = {};
    request.stateMask = mask;
    request.state = state;
    hostlink::RemoteSend(list, LVM_SETITEMSTATE, static_cast<WPARAM>(index), hostlink::AsBlock(request));
}

std::string ListItemText(const hostlink::HostWindow& list, int index, int column) {
    LVITEMA request = {};
    request.mask = LVIF_TEXT;
    request.iItem = index;
    request.iSubItem = column;
    request.cchTextMax = 260; // the remote send puts the capacity of its own buffer in place
    std::string text;
    hostlink::RemoteSendWithString(list, LVM_GETITEMTEXTA, static_cast<WPARAM>(index),
                                   hostlink::AsBlock(request), offsetof(LVITEMA, pszText), text);
    return text;
}

void EnsureListItemVisible(HWND list, int index) noexcept {
    SendMessageA(list, LVM_ENSUREVISIBLE, static_cast<WPARAM>(index), FALSE);
}

RECT ListItemLabel(const hostlink::HostWindow& list, int index) {
    RECT rectangle = {};
    rectangle.left = LVIR_LABEL; // the message takes the kind of rectangle where it puts the rectangle
    const LRESULT found =
        hostlink::RemoteSend(list, LVM_GETITEMRECT, static_cast<WPARAM>(index), hostlink::AsBlock(rectangle));
    return found != 0 ? rectangle : RECT{};
}

} // namespace controls
