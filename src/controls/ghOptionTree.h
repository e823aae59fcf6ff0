// The host's option tree, and an item of it: the tree's window with the identifier that the host gave the
// item. No operation activates the tree, waits or synchronises.
#pragma once

#include <cstdint>
#include <string>

#include "engine/ghBaseWindow.h"

// The tree itself carries the item identifier 0, which means no item.
class ghOptionTree : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;

    bool IsValidItem() const noexcept { return IsValid() && m_item != 0; }

    ghOptionTree RootItem() const;
    // The item that a path of labels leads to, between any of "|/\"; the root's own label is not part of
    // it. The root's first child for an empty path; no item when nothing is found.
    ghOptionTree ItemByPath(const std::string& path) const;

    // The item's neighbours; no item where there is none.
    ghOptionTree ChildItem() const;
    ghOptionTree ParentItem() const;
    ghOptionTree SiblingItem() const;

    std::string Label() const;
    // The item's text value, "1" or "0" for a check box.
    std::string Value() const;
    // A text of 1024 bytes and more is not sent.
    void SetValue(const std::string& value) const;
    bool IsCheckbox() const noexcept;
    // Whether the text value is exactly "1".
    bool Checked() const;
    void SetChecked(bool checked) const;
    bool IsReadOnly() const noexcept;

private:
    ghOptionTree Item(LRESULT identifier) const;
    ghOptionTree SiblingWithLabel(const std::string& label) const;
    LRESULT Ask(std::uint32_t request) const noexcept;
    std::string RequestText(std::uint32_t request) const;

    std::uint64_t m_item = 0;
};
