#include "controlbars/context_menu.h"

#include "controlbars/popup_capture.h"
#include "controlbars/popup_menu.h"
#include "input/mouse.h"

namespace controlbars {

std::unique_ptr<ghControlBar> OpenContextMenu(const ghBaseWindow& window, int x, int y) {
    return CapturePopup(window, [&] { input::Click(window, input::kRightButton, x, y, 0, true); });
}

std::unique_ptr<ghControlBar> FindCurrentContextMenu(const ghBaseWindow& window) {
    auto shown = MakeShownBar(window, FindCurrentPopup(window));
    return shown != nullptr && shown->IsValid() ? std::move(shown) : nullptr;
}

} // namespace controlbars
