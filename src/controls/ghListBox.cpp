#include "controls/ghListBox.h"

#include "controlbars/context_menu.h"
#include "controls/item_point.h"
#include "controls/item_search.h"
#include "engine/activation.h"
#include "hostlink/window_kind.h"
#include "inhouse/dlgkit.h"
#include "input/mouse.h"

namespace {

bool HasStyle(const ghListBox& list, DWORD style) noexcept {
    return (hostlink::WindowStyle(list.Window()) & style) != 0;
}

// In client coordinates; an empty one at the origin for an item that has gone.
RECT ItemRectangle(const ghListBox& list, int index) noexcept {
    RECT rectangle = {};
    const LRESULT answer = SendMessageA(list.Window(), LB_GETITEMRECT, static_cast<WPARAM>(index),
                                        reinterpret_cast<LPARAM>(&rectangle));
    return static_cast<int>(answer) != LB_ERR ? rectangle : RECT{};
}

// Scrolls the item into view, too.
void MoveCaret(const ghListBox& list, int index) noexcept {
    SendMessageA(list.Window(), LB_SETCARETINDEX, static_cast<WPARAM>(index), FALSE);
}

bool ChangeSelection(const ghListBox& list, int index, bool select) {
    engine::Activate(list);
    if (!controls::HasItem(list, index)) {
        return false;
    }
    if (list.IsSelected(index) == select) {
        return true;
    }
    engine::WaitUntilReady(list);
    if (HasStyle(list, LBS_MULTIPLESEL)) {
        MoveCaret(list, index);
    } else {
        // Selects the item of a list with single selection also when it is to be taken out, on purpose.
        SendMessageA(list.Window(), LB_SETCURSEL, static_cast<WPARAM>(index), 0);
    }
    const POINT point = controls::ClickPoint(ItemRectangle(list, index));
    const int keys = HasStyle(list, LBS_EXTENDEDSEL) ? input::kControlKey : 0;
    input::Click(list, input::kLeftButton, point.x, point.y, keys);
    return true;
}

bool ChangeSelection(const ghListBox& list, const std::string& name, bool select) {
    const int index = controls::ActivateAndFindItem(list, name);
    return index >= 0 && ChangeSelection(list, index, select);
}

POINT CentreOfItem(const ghListBox& list, int index) {
    MoveCaret(list, index);
    return controls::Centre(ItemRectangle(list, index));
}

POINT PointBelowItems(const ghListBox& list) {
    if (const int count = list.ItemsCount(); count > 0) {
        MoveCaret(list, count - 1);
    }
    return controls::BackgroundPoint(list.Window());
}

} // namespace

int ghListBox::ItemsCount() const noexcept {
    return static_cast<int>(SendMessageA(Window(), LB_GETCOUNT, 0, 0));
}

std::string ghListBox::GetItem(int index) const {
    return controls::HasItem(*this, index) ? dkListHelpers::get_list_item(Window(), index, false)
                                           : std::string();
}

int ghListBox::SelectedItem() const noexcept {
    return static_cast<int>(SendMessageA(Window(), LB_GETCURSEL, 0, 0));
}

bool ghListBox::IsSelected(int index) const noexcept {
    // The answer for an index out of range is not 0 either and counts as selected, on purpose.
    return SendMessageA(Window(), LB_GETSEL, static_cast<WPARAM>(index), 0) != 0;
}

bool ghListBox::SelectItem(int index) const {
    return ChangeSelection(*this, index, true);
}

bool ghListBox::SelectItemByName(const std::string& name) const {
    return ChangeSelection(*this, name, true);
}

bool ghListBox::UnselectItem(int index) const {
    return ChangeSelection(*this, index, false);
}

bool ghListBox::UnselectItemByName(const std::string& name) const {
    return ChangeSelection(*this, name, false);
}

std::unique_ptr<ghControlBar> ghListBox::ContextMenu(bool selected) const {
    const int index = selected ? SelectedItem() : -1;
    const POINT point = index >= 0 ? CentreOfItem(*this, index) : PointBelowItems(*this);
    return controlbars::OpenContextMenu(*this, point.x, point.y);
}
