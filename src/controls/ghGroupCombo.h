// A combo box whose list mixes headings with items: an item belongs to the heading above it, and headings
// cannot be chosen. Indices count headings in and start at 0.
#pragma once

#include <string>

#include "engine/ghBaseWindow.h"

class ghGroupCombo : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;

    // The text of the selected item; empty when none is selected.
    std::string Text() const override;

    int ItemsCount() const noexcept;
    // Empty for an index out of range.
    std::string ItemText(int index) const;
    // The text of the heading that the item belongs to; a heading's own text for a heading.
    std::string HeadingOfItem(int index) const;
    // That of the selected item; empty when none is selected.
    std::string HeadingText() const;

    // Activates the control and chooses the item as a user does. False for a heading and an index out of
    // range: nothing is selected then.
    bool SelectItem(int index) const;
    // The host finds the item. False, without activation, when it knows no such pair of names.
    bool SelectItemByName(const std::string& heading, const std::string& item) const;

private:
    int SelectedIndex() const noexcept;
};
