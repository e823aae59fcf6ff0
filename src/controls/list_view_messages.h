// The messages of a list view that its adapter sends.
#pragma once

#include <string>

#include "hostlink/host_window.h"

#include <commctrl.h>

namespace controls {

int ListItemsCount(HWND list) noexcept;

// The bits of the item's state that are in `mask`.
UINT ListItemState(HWND list, int index, UINT mask) noexcept;

void SetListItemState(const hostlink::HostWindow& list, int index, UINT mask, UINT state);

// At most 1023 bytes of the item's text in that column; empty if it cannot be read.
std::string ListItemText(const hostlink::HostWindow& list, int index, int column);

void EnsureListItemVisible(HWND list, int index) noexcept;

// The rectangle of the item's label in client coordinates; an empty one at the origin if it has none.
RECT ListItemLabel(const hostlink::HostWindow& list, int index);

} // namespace controls
