// The messages of a tree view that its adapters send.
#pragma once

#include <optional>
#include <string>

#include "hostlink/host_window.h"

#include <commctrl.h>

namespace controls {

// The item in that relation (TVGN_...) to `item`, which some relations do not need; null if there is none.
HTREEITEM RelatedItem(HWND tree, UINT relation, HTREEITEM item = nullptr) noexcept;

// The bits of the item's state that are in `mask`.
UINT ItemState(HWND tree, HTREEITEM item, UINT mask) noexcept;

// `action` is TVE_EXPAND or TVE_COLLAPSE. A lazily filled tree makes the item's children now.
void ExpandItem(HWND tree, HTREEITEM item, UINT action) noexcept;

void EnsureItemVisible(HWND tree, HTREEITEM item) noexcept;

// At most 1023 bytes of the item's text; empty if it cannot be read.
std::string ItemText(const hostlink::HostWindow& tree, HTREEITEM item);

// The rectangle of the item's text in client coordinates; nullopt for an item that shows none.
std::optional<RECT> ItemTextRectangle(const hostlink::HostWindow& tree, HTREEITEM item);

} // namespace controls
