// A tab control.
#pragma once

#include <memory>
#include <string>

#include "controlbars/ghControlBar.h"
#include "engine/ghBaseWindow.h"

// Tabs are addressed by their 0-based index, or by the beginning of their text: the first tab that begins so
// counts, case-sensitive.
class ghTabControl : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;

    int ItemsCount() const noexcept;
    // At most 1023 bytes; empty for an index out of range.
    std::string GetItem(int index) const;
    // -1 if no tab is selected.
    int SelectedItem() const noexcept;

    // Activates the control and clicks the tab, unless it is selected already: nothing is done then. False
    // where there is no such tab. The click's success is not checked.
    bool SelectItem(int index) const;
    bool SelectItemByName(const std::string& name) const;

    // The menu of the selected tab; with `selected` false, or without a selected tab, the menu of the
    // control's bottom right corner. Null if none opened.
    std::unique_ptr<ghControlBar> ContextMenu(bool selected) const;
};
