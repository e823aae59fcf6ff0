// Finding an item of a list by its name, and the test whether an index is one of a list's. A list is a
// window with ItemsCount() and GetItem(index), which is empty for an index out of range, and is made of the
// window's handle alone.
#pragma once

#include <string_view>

#include "engine/activation.h"
#include "engine/prefix_match.h"
#include "hostlink/indexed_walk.h"
#include "hostlink/walk.h"

namespace controls {

// Asks for the count afresh.
template <class List>
bool HasItem(const List& list, int index) {
    return index >= 0 && index < list.ItemsCount();
}

inline constexpr int kMostItems = 0x1000000;

using ListPosition = hostlink::IndexedPosition;

template <class List>
bool StepToPrefix(const hostlink::HostWindow& control, std::string_view name, ListPosition& position) {
    const List list(control.window);
    return hostlink::StepToItem(
        position, kMostItems, [&] { return list.ItemsCount(); },
        // An item that has gone meanwhile reads as empty.
        [&](int index) { return engine::StartsWith(list.GetItem(index), name); });
}

// The index of the first item whose text begins with the name, -1 if there is none.
template <class List>
int FirstItemWithPrefix(const List& list, std::string_view name) {
    ListPosition position;
    hostlink::Walk<ListPosition, StepToPrefix<List>>(list.Host(), name, position);
    return position.found;
}

// Activates the list, then does the same.
template <class List>
int ActivateAndFindItem(const List& list, std::string_view name) {
    engine::Activate(list);
    return FirstItemWithPrefix(list, name);
}

} // namespace controls
