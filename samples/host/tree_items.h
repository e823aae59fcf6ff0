// Items of the host's tree views.
#pragma once

#include <windows.h>

#include <commctrl.h>
#include <string>

namespace sample_host {

// At the end of the parent's children; TVI_ROOT for an item of the topmost level.
HTREEITEM AddTreeItem(HWND tree, HTREEITEM parent, std::string text);

// At most 259 bytes.
std::string TreeItemText(HWND tree, HTREEITEM item);

} // namespace sample_host
