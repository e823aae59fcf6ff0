// Finding an item of a list by its name, and the test whether an index is one of a list's. A list is a
// window with ItemsCount() and GetItem(index), which is empty for an index out of range, and is made of the
// window's handle alone.
#pragma once

#include <cstdint>
#include <string_view>

#include "engine/activation.h"
#include "engine/prefix_match.h"
#include "hostlink/walk.h"

namespace controls {

// Asks for the count afresh.
template <class List>
bool HasItem(const List& list, int index) {
    return index >= 0 && index < list.ItemsCount();
}

// A control that claims more items is not believed: to read them all would take hours.
inline constexpr int kMostItems = 0x1000000;

// The walk over a list's items and where it stands.
struct ListPosition {
    std::int32_t index = -1; // -1: the walk has not begun
    std::int32_t count = 0;
    std::int32_t found = -1;
};

template <class List>
bool StepToPrefix(const hostlink::HostWindow& control, std::string_view name, ListPosition& position) {
    const List list(control.window);
    if (position.index < 0) {
        const int count = list.ItemsCount();
        position.count = count <= kMostItems ? count : 0;
        position.index = 0;
    } else if (engine::StartsWith(list.GetItem(position.index), name)) {
        // An item that has gone meanwhile reads as empty.
        position.found = position.index;
    } else {
        ++position.index;
    }
    return position.found < 0 && position.index < position.count;
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
