#include "controls/ghListView.h"

#include "controlbars/context_menu.h"
#include "controls/item_point.h"
#include "controls/item_search.h"
#include "controls/list_view_messages.h"
#include "engine/activation.h"
#include "input/keyboard.h"
#include "input/mouse.h"

namespace {

enum class Selection { Exclusive, Additive };

constexpr UINT kUncheckedImage = INDEXTOSTATEIMAGEMASK(1);
constexpr UINT kCheckedImage = INDEXTOSTATEIMAGEMASK(2);

// On purpose anything but state image 1 counts as checked, also no state image at all.
bool HasCheck(const ghListView& list, int index) noexcept {
    return controls::ListItemState(list.Window(), index, LVIS_STATEIMAGEMASK) != kUncheckedImage;
}

RECT VisibleLabel(const ghListView& list, int index) {
    controls::EnsureListItemVisible(list.Window(), index);
    return controls::ListItemLabel(list.Host(), index);
}

// Makes the item, which need not exist, selected or not by a click, unless it is so already.
bool ChangeSelection(const ghListView& list, int index, bool select, Selection selection) {
    engine::Activate(list);
    if (!controls::HasItem(list, index)) {
        return false;
    }
    if (selection == Selection::Exclusive) {
        // Goes out for an item that is selected already, too.
        SendMessageA(list.Window(), LVM_SETSELECTIONMARK, 0, -1);
        input::PressKey(list, VK_SPACE, 0);
    }
    if (list.IsSelected(index) == select) {
        return true;
    }
    engine::WaitUntilReady(list);
    const POINT point = controls::ClickPoint(VisibleLabel(list, index));
    if (selection == Selection::Exclusive) {
        input::Click(list, input::kLeftButton, point.x, point.y, 0);
    } else {
        // Taking an item out is real input, adding one is posted, on purpose.
        const bool real = !select;
        input::Click(list, input::kLeftButton, point.x, point.y, input::kControlKey, real);
    }
    return true;
}

bool ChangeCheck(const ghListView& list, int index, bool check) {
    engine::Activate(list);
    const LRESULT style = SendMessageA(list.Window(), LVM_GETEXTENDEDLISTVIEWSTYLE, 0, 0);
    if ((style & LVS_EX_CHECKBOXES) == 0 || !controls::HasItem(list, index)) {
        return false;
    }
    if (HasCheck(list, index) != check) {
        controls::SetListItemState(list.Host(), index, LVIS_STATEIMAGEMASK,
                                   check ? kCheckedImage : kUncheckedImage);
    }
    return true;
}

// False without further action when no item has the name.
template <class Act>
bool OnNamedItem(const ghListView& list, const std::string& name, Act act) {
    const int index = controls::ActivateAndFindItem(list, name);
    return index >= 0 && act(index);
}

// Where the list's own menu opens: below the last item, which is scrolled into view.
POINT PointBelowItems(const ghListView& list) noexcept {
    if (const int count = list.ItemsCount(); count > 0) {
        controls::EnsureListItemVisible(list.Window(), count - 1);
    }
    return controls::BackgroundPoint(list.Window());
}

} // namespace

int ghListView::ItemsCount() const noexcept {
    return controls::ListItemsCount(Window());
}

std::string ghListView::GetItem(int index) const {
    return GetSubItem(index, 0);
}

std::string ghListView::GetSubItem(int index, int column) const {
    return controls::HasItem(*this, index) ? controls::ListItemText(Host(), index, column) : std::string();
}

int ghListView::SelectedItem() const noexcept {
    return static_cast<int>(SendMessageA(Window(), LVM_GETNEXTITEM, static_cast<WPARAM>(-1), LVNI_SELECTED));
}

bool ghListView::IsSelected(int index) const noexcept {
    return controls::ListItemState(Window(), index, LVIS_SELECTED) != 0;
}

bool ghListView::SelectItem(int index) const {
    return ChangeSelection(*this, index, true, Selection::Exclusive);
}

bool ghListView::SelectItemByName(const std::string& name) const {
    return OnNamedItem(*this, name, [&](int index) { return SelectItem(index); });
}

bool ghListView::AddToSelection(int index) const {
    return ChangeSelection(*this, index, true, Selection::Additive);
}

bool ghListView::AddToSelectionByName(const std::string& name) const {
    return OnNamedItem(*this, name, [&](int index) { return AddToSelection(index); });
}

bool ghListView::UnselectItem(int index) const {
    return ChangeSelection(*this, index, false, Selection::Additive);
}

bool ghListView::UnselectItemByName(const std::string& name) const {
    return OnNamedItem(*this, name, [&](int index) { return UnselectItem(index); });
}

void ghListView::Select() const {
    const int index = SelectedItem();
    if (index < 0) {
        return;
    }
    engine::WaitUntilReady(*this);
    const POINT point = controls::ClickPoint(VisibleLabel(*this, index));
    // The control key leaves the selection as it is.
    input::DoubleClick(*this, input::kLeftButton, point.x, point.y, input::kControlKey);
}

bool ghListView::IsChecked(int index) const noexcept {
    return controls::HasItem(*this, index) && HasCheck(*this, index);
}

bool ghListView::CheckItem(int index) const {
    return ChangeCheck(*this, index, true);
}

bool ghListView::CheckItemByName(const std::string& name) const {
    return OnNamedItem(*this, name, [&](int index) { return CheckItem(index); });
}

bool ghListView::UncheckItem(int index) const {
    return ChangeCheck(*this, index, false);
}

bool ghListView::UncheckItemByName(const std::string& name) const {
    return OnNamedItem(*this, name, [&](int index) { return UncheckItem(index); });
}

std::unique_ptr<ghControlBar> ghListView::ContextMenu(bool selected) const {
    const int index = selected ? SelectedItem() : -1;
    const POINT point = index >= 0 ? controls::Centre(VisibleLabel(*this, index)) : PointBelowItems(*this);
    return controlbars::OpenContextMenu(*this, point.x, point.y);
}
