// An item of a tree view.
#pragma once

#include <memory>
#include <optional>
#include <string>

#include "controls/ghTreeControl.h"

class ghTreeItem {
public:
    ghTreeItem(const ghTreeControl& tree, HTREEITEM item) noexcept : m_tree(tree), m_item(item) {}
    virtual ~ghTreeItem() = default;

    bool IsValid() const noexcept { return m_tree.IsValid() && m_item != nullptr; }
    // This object's own copy of the tree's object, as it was when the item was found.
    const ghTreeControl& Tree() const noexcept { return m_tree; }
    HWND Window() const noexcept { return m_tree.Window(); }
    HTREEITEM Item() const noexcept { return m_item; }

    // Makes it the selected item and synchronises.
    void Select() const;

    bool Selected() const noexcept;
    // True selects the item; false does nothing, as a tree view has no way to deselect.
    void SetSelected(bool selected) const;
    bool Expanded() const noexcept;
    // Deliberately does not synchronise.
    void SetExpanded(bool expanded) const noexcept;
    // The index of the overlay image, 0 to 15. Deliberately not that of the state image.
    int StateImage() const noexcept;

    // At most 1023 bytes of the item's text.
    std::string Text() const;
    // Renames the item as a user does, by editing its label. Without effect when the tree does not allow it.
    void SetText(const std::string& text) const;

    // Scrolls the item into view. The middle of its text in client coordinates, nullopt if it has none.
    std::optional<POINT> TextCentre() const;
    // Null if none opened.
    std::unique_ptr<ghControlBar> ContextMenu() const;

private:
    ghTreeControl m_tree;
    HTREEITEM m_item;
};
