// A list view.
#pragma once

#include <memory>
#include <string>

#include "controlbars/ghControlBar.h"
#include "engine/ghBaseWindow.h"

// Items are addressed by their 0-based index, or by the beginning of their text: the first item that begins
// so counts. The members that take an item are false, or the text empty, where there is no such item.
class ghListView : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;

    int ItemsCount() const noexcept;
    // At most 1023 bytes of the text in the first or in a given column.
    std::string GetItem(int index) const;
    std::string GetSubItem(int index, int column) const;

    // The first selected item, -1 if there is none.
    int SelectedItem() const noexcept;
    bool IsSelected(int index) const noexcept;
    // Makes the item the only selected one, by a click. The click's success is not checked, here and below.
    bool SelectItem(int index) const;
    bool SelectItemByName(const std::string& name) const;
    // Leave the selection of the other items alone.
    bool AddToSelection(int index) const;
    bool AddToSelectionByName(const std::string& name) const;
    bool UnselectItem(int index) const;
    bool UnselectItemByName(const std::string& name) const;
    // Opens the first selected item, as a double click does.
    void Select() const;

    // True also for every item of a list without check boxes.
    bool IsChecked(int index) const noexcept;
    // Also false for a list without check boxes.
    bool CheckItem(int index) const;
    bool CheckItemByName(const std::string& name) const;
    bool UncheckItem(int index) const;
    bool UncheckItemByName(const std::string& name) const;

    // The menu of the first selected item; with `selected` false, or without a selected item, the menu of
    // the place below the last item. Null if none opened.
    std::unique_ptr<ghControlBar> ContextMenu(bool selected) const;
};
