// A tree view.
#pragma once

#include <memory>
#include <string>

#include "controlbars/ghControlBar.h"
#include "controls/tree_view_messages.h"
#include "engine/ghBaseWindow.h"

class ghTreeItem;

// Items are found afresh in every call. What is not found is a null item or false, never an error.
class ghTreeControl : public ghBaseWindow {
public:
    explicit ghTreeControl(HWND window) noexcept : ghBaseWindow(window) {
        SetRealInput(true); // a tree takes only real clicks
    }

    // The object of an item of this tree.
    virtual std::unique_ptr<ghTreeItem> MakeItem(HTREEITEM item) const;

    // The three ways to find an item, see controls/tree_search.h; each may expand items that it passes.
    std::unique_ptr<ghTreeItem> ItemByNumPath(const std::string& path) const;
    std::unique_ptr<ghTreeItem> ItemByNum(int number) const;
    std::unique_ptr<ghTreeItem> ItemByPath(const std::string& path) const;
    std::unique_ptr<ghTreeItem> SelectedItem() const;

    // Each activates the tree, finds the item and selects it. A path that is too long does nothing.
    bool SelectItem(const std::string& path) const;
    bool SelectItemByNum(int number) const;
    bool SelectItemByPath(const std::string& path) const;

    // The menu of the selected item; with `selected` false, or without a selected item, the menu of the
    // place below the last item. Null if none opened.
    std::unique_ptr<ghControlBar> ContextMenu(bool selected) const;
};
