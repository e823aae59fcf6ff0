// Finding an item of a list by its name, and the test whether an index is one of a list's. A list is a
// window with ItemsCount() and GetItem(index), which is empty for an index out of range.
#pragma once

#include <string_view>

#include "engine/activation.h"
#include "engine/prefix_match.h"

namespace controls {

// Asks for the count afresh.
template <class List>
bool HasItem(const List& list, int index) {
    return index >= 0 && index < list.ItemsCount();
}

// A control that claims more items is not believed: to read them all would take hours.
inline constexpr int kMostItems = 0x1000000;

// The index of the first item whose text begins with the name, -1 if there is none.
template <class List>
int FirstItemWithPrefix(const List& list, std::string_view name) {
    const int count = list.ItemsCount();
    for (int index = 0; index < count && count <= kMostItems; ++index) {
        // An item that has gone meanwhile reads as empty.
        if (engine::StartsWith(list.GetItem(index), name)) {
            return index;
        }
    }
    return -1;
}

// Activates the list, then does the same.
template <class List>
int ActivateAndFindItem(const List& list, std::string_view name) {
    engine::Activate(list);
    return FirstItemWithPrefix(list, name);
}

} // namespace controls
