// A combo box.
#pragma once

#include <string>

#include "engine/ghBaseWindow.h"

// Indices are 0-based.
class ghComboBox : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;

    int ItemsCount() const noexcept;
    // Empty for an index out of range and for a combo box that keeps no strings.
    std::string GetItem(int index) const;

    // Activates the combo box and chooses the item without mouse input; the dialog is told as if a user had
    // chosen it. In a combo box that is built around another one the inner one is meant. False for an index
    // out of range.
    bool SelectItem(int index) const;
    // The first item whose text begins with the name, case-sensitive; false if there is none.
    bool SelectItemByName(const std::string& name) const;
};
