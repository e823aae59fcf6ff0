// Choosing an item of a combo box, for plain and group combo boxes.
#pragma once

#include "engine/ghBaseWindow.h"

namespace controls {

// Selects the item, which must exist, and tells the dialog that listens as if a user had chosen it from
// the list; then synchronises. Sends messages only, no input: the caller activates and waits before.
void SelectComboItem(const ghBaseWindow& combo, int index);

} // namespace controls
