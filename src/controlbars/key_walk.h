// Walking the highlight of an open menu or popup bar with a key.
#pragma once

#include <functional>

#include "engine/ghBaseWindow.h"

namespace controlbars {

enum class WalkState {
    NotYet,
    Reached,
    Gone, // the item cannot be reached any more
};

// Presses the key, with a pause in milliseconds after it, until `look` says that the item is reached: true.
// False when it is gone. Deliberately without a limit. Calling thread's messages are dispatched meanwhile.
bool WalkWithKey(const ghBaseWindow& window, int virtualKey, unsigned pause,
                 const std::function<WalkState()>& look);

} // namespace controlbars
