// The tree of the model: a tree view of the system that answers requests of its own about its items.
// A right click opens a menu that shows, hides, stars and colours the item; the box before it checks it.
#pragma once

#include "control.h"

namespace sample_host {

HWND AddCadTree(HWND parent, Area area, int id);

// To be given every WM_NOTIFY that the parent gets; true when it was the tree's and `result` is set.
bool OnCadTreeNotify(const NMHDR& notification, LRESULT& result);

} // namespace sample_host
