// The menu or popup bar that a click opens, or that is open already.
#pragma once

#include <memory>

#include "controlbars/ghControlBar.h"

namespace controlbars {

// Right-clicks the client point (x, y) with real input and answers with the menu or popup bar that opened;
// null if none did.
std::unique_ptr<ghControlBar> OpenContextMenu(const ghBaseWindow& window, int x, int y);

// The popup menu or popup bar that the window's GUI thread shows at the moment; null if there is none.
std::unique_ptr<ghControlBar> FindCurrentContextMenu(const ghBaseWindow& window);

} // namespace controlbars
