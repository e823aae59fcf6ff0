#include "controls/ghComboBox.h"

#include "controls/combo_selection.h"
#include "controls/item_search.h"
#include "engine/activation.h"
#include "inhouse/dlgkit.h"

namespace {

// The combo box that a composite one is built around: a child with the same id, shown or not.
HWND InnerCombo(const ghComboBox& outer) noexcept {
    HWND child = nullptr;
    while ((child = FindWindowExA(outer.Window(), child, "ComboBox", nullptr)) != nullptr) {
        if (GetDlgCtrlID(child) == outer.ControlID()) {
            break;
        }
    }
    return child;
}

} // namespace

int ghComboBox::ItemsCount() const noexcept {
    return static_cast<int>(SendMessageA(Window(), CB_GETCOUNT, 0, 0));
}

std::string ghComboBox::GetItem(int index) const {
    return controls::HasItem(*this, index) ? dkListHelpers::get_combo_item(Window(), index, false)
                                           : std::string();
}

bool ghComboBox::SelectItem(int index) const {
    engine::Activate(*this);
    if (!controls::HasItem(*this, index)) {
        return false;
    }
    engine::WaitUntilReady(*this);
    if (const HWND window = InnerCombo(*this)) {
        ghComboBox inner(window);
        inner.SetSynchronization(Synchronization());
        inner.SetEnabledTimeout(EnabledTimeout());
        return inner.SelectItem(index);
    }
    controls::SelectComboItem(*this, index);
    return true;
}

bool ghComboBox::SelectItemByName(const std::string& name) const {
    const int index = controls::ActivateAndFindItem(*this, name);
    return index >= 0 && SelectItem(index);
}
