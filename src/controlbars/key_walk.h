// Walking the highlight of an open menu or popup bar with a key.
#pragma once

#include <functional>

#include "engine/ghBaseWindow.h"

namespace controlbars {

enum class WalkState {
    NotOpen, // not now: keys would reach something else
    NotYet,
    Reached,
    Gone, // the item cannot be reached any more
};

// Presses the key, with a pause in milliseconds after it, until `look` says that the item is reached: true.
// False when it is gone. Nothing is pressed while it is not open. Deliberately without a limit. Once the
// highlight has gone too far, or has had the keys for a whole lap of `items`, the host is waited for after
// each key: one that is slower than the keys would be overshot on every lap. The calling thread's messages
// are dispatched meanwhile.
bool WalkWithKey(const ghBaseWindow& window, int virtualKey, int pause, int items,
                 const std::function<WalkState()>& look);

} // namespace controlbars
