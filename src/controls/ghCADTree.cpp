#include "controls/ghCADTree.h"

#include "controls/ghCADTreeItem.h"

std::unique_ptr<ghTreeItem> ghCADTree::MakeItem(HTREEITEM item) const {
    return std::make_unique<ghCADTreeItem>(*this, item);
}
