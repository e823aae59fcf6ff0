// The menu or popup bar that an action makes the host open.
#pragma once

#include <functional>
#include <memory>

#include "controlbars/ghControlBar.h"

namespace controlbars {

// Performs `open` while the windows that `owner`'s GUI thread creates are watched. Answers with the bar that
// was created, else with the menu, as a menu of `owner`, else with a popup that is shown now and was not
// before; null if there is none. Where the thread cannot be watched `open` is not performed.
std::unique_ptr<ghControlBar> CapturePopup(const ghBaseWindow& owner, const std::function<void()>& open);

} // namespace controlbars
