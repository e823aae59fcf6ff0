// A list box.
#pragma once

#include <memory>
#include <string>

#include "controlbars/ghControlBar.h"
#include "engine/ghBaseWindow.h"

// Items are addressed by their 0-based index, or by the beginning of their text: the first item that begins
// so counts, case-sensitive. The members that take an item are false, or the text empty, where there is no
// such item.
class ghListBox : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;

    int ItemsCount() const noexcept;
    // Empty also for a list box that keeps no strings.
    std::string GetItem(int index) const;

    // The selected item, in a list with multiple selection the one with the focus; -1 if there is none.
    int SelectedItem() const noexcept;
    // True also for an index out of range.
    bool IsSelected(int index) const noexcept;

    // Activate the list box and click the item, unless its state is the wanted one already; in a list with
    // multiple selection the other items stay as they are. The click's success is not checked.
    bool SelectItem(int index) const;
    bool SelectItemByName(const std::string& name) const;
    // In a list with single selection the item ends up selected, on purpose.
    bool UnselectItem(int index) const;
    bool UnselectItemByName(const std::string& name) const;

    // The menu of the selected item; with `selected` false, or without a selected item, the menu of the
    // place below the last item. Null if none opened.
    std::unique_ptr<ghControlBar> ContextMenu(bool selected) const;
};
