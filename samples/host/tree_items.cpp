#include "tree_items.h"

namespace sample_host {

HTREEITEM AddTreeItem(HWND tree, HTREEITEM parent, std::string text) {
    TVINSERTSTRUCTA insertion{};
    insertion.hParent = parent;
    insertion.hInsertAfter = TVI_LAST;
    insertion.item.mask = TVIF_TEXT;
    insertion.item.pszText = text.data();
    return reinterpret_cast<HTREEITEM>(
        SendMessageA(tree, TVM_INSERTITEMA, 0, reinterpret_cast<LPARAM>(&insertion)));
}

std::string TreeItemText(HWND tree, HTREEITEM item) {
    char text[260] = "";
    TVITEMA request{};
    request.mask = TVIF_TEXT;
    request.hItem = item;
    request.pszText = text;
    request.cchTextMax = sizeof text;
    SendMessageA(tree, TVM_GETITEMA, 0, reinterpret_cast<LPARAM>(&request));
    return text;
}

} // namespace sample_host
