// The walk over items that have an index: count them once, then look at one after the other.
#pragma once

#include <cstdint>

namespace hostlink {

struct IndexedPosition {
    std::int32_t index = -1; // -1: the walk has not begun
    std::int32_t count = 0;
    std::int32_t found = -1;
};

// One step. A control that claims more than `most` items is not believed and has none: to look at them all
// would take hours. `count()` asks for their number, `isMeant(index)` whether an item is the one.
template <class Count, class IsMeant>
bool StepToItem(IndexedPosition& position, int most, Count count, IsMeant isMeant) {
    if (position.index < 0) {
        const int claimed = count();
        position.count = claimed <= most ? claimed : 0;
        position.index = 0;
    } else if (isMeant(position.index)) {
        position.found = position.index;
    } else {
        ++position.index;
    }
    return position.found < 0 && position.index < position.count;
}

} // namespace hostlink
