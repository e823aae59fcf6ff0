#include "input/mouse_block.h"

#include "hostlink/mouse_block_hook.h"
#include "hostlink/shared_section.h"
#include "input/ghSplashScreen.h"

namespace input {

using hostlink::shared;

bool AllowMouseBlocks() noexcept {
    return shared.allowMouseBlocks != 0;
}

void SetAllowMouseBlocks(bool allow) noexcept {
    shared.allowMouseBlocks = allow ? 1 : 0;
}

void LetMouseThrough() noexcept {
    shared.mouseBlocked = 0;
}

void BlockMouseAfterInput() {
    if (!AllowMouseBlocks() || shared.mouseBlocked != 0) {
        return;
    }
    shared.mouseBlocked = 1;
    // The hook comes before the notice: of two scripts that get here at once, one shows it.
    if (shared.mouseBlockHook == 0 && hostlink::InstallMouseBlockHook()) {
        ghSplashScreen::Show(nullptr);
    }
}

void UnblockMouse() noexcept {
    if (shared.mouseBlocked == 0) {
        return;
    }
    shared.mouseBlocked = 0;
    hostlink::RemoveMouseBlockHook();
    ghSplashScreen::Destroy();
}

} // namespace input
