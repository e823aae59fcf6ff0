#include "controls/ghTabControl.h"

#include <cstddef>

#include <commctrl.h>

#include "controlbars/context_menu.h"
#include "controls/item_point.h"
#include "controls/item_search.h"
#include "engine/activation.h"
#include "hostlink/remote_send.h"
#include "input/mouse.h"

namespace {

static_assert(offsetof(TCITEMA, mask) == 0 && offsetof(TCITEMA, pszText) == 16 &&
              offsetof(TCITEMA, cchTextMax) == 24 && sizeof(TCITEMA) == 40);

// In client coordinates; an empty one at the origin for a tab that has gone.
RECT TabRectangle(const ghTabControl& tabs, int index) {
    RECT rectangle = {};
    const LRESULT found = hostlink::RemoteSend(tabs.Host(), TCM_GETITEMRECT, static_cast<WPARAM>(index),
                                               hostlink::AsBlock(rectangle));
    return found != 0 ? rectangle : RECT{};
}

void FocusTab(const ghTabControl& tabs, int index) noexcept {
    SendMessageA(tabs.Window(), TCM_SETCURFOCUS, static_cast<WPARAM>(index), 0);
}

POINT CentreOfTab(const ghTabControl& tabs, int index) {
    FocusTab(tabs, index);
    return controls::Centre(TabRectangle(tabs, index));
}

// Not the bottom left as in lists, on purpose.
POINT BottomRight(HWND control) noexcept {
    RECT client = {};
    GetClientRect(control, &client);
    return {client.right - 1, client.bottom - 1};
}

} // namespace

int ghTabControl::ItemsCount() const noexcept {
    return static_cast<int>(SendMessageA(Window(), TCM_GETITEMCOUNT, 0, 0));
}

std::string ghTabControl::GetItem(int index) const {
    std::string text;
    if (controls::HasItem(*this, index)) {
        TCITEMA request = {};
        request.mask = TCIF_TEXT;
        request.cchTextMax = 260; // the remote send puts the capacity of its own buffer in place
        hostlink::RemoteSendWithString(Host(), TCM_GETITEMA, static_cast<WPARAM>(index),
                                       hostlink::AsBlock(request), offsetof(TCITEMA, pszText), text);
    }
    return text;
}

int ghTabControl::SelectedItem() const noexcept {
    return static_cast<int>(SendMessageA(Window(), TCM_GETCURSEL, 0, 0));
}

bool ghTabControl::SelectItem(int index) const {
    if (!controls::HasItem(*this, index)) {
        return false;
    }
    if (SelectedItem() == index) {
        return true;
    }
    engine::Activate(*this);
    engine::WaitUntilReady(*this);
    FocusTab(*this, index);
    const RECT tab = TabRectangle(*this, index);
    input::Click(*this, input::kLeftButton, controls::Centre(tab).x, tab.top + 1, 0);
    return true;
}

bool ghTabControl::SelectItemByName(const std::string& name) const {
    const int index = controls::FirstItemWithPrefix(*this, name);
    return index >= 0 && SelectItem(index);
}

std::unique_ptr<ghControlBar> ghTabControl::ContextMenu(bool selected) const {
    const int index = selected ? SelectedItem() : -1;
    const POINT point = index >= 0 ? CentreOfTab(*this, index) : BottomRight(Window());
    return controlbars::OpenContextMenu(*this, point.x, point.y);
}
