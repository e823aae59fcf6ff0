#include "input/mouse_block.h"

#include "hostlink/hook.h"
#include "hostlink/shared_section.h"

namespace input {

using hostlink::shared;

bool AllowMouseBlocks() noexcept {
    return shared.allowMouseBlocks != 0;
}

void SetAllowMouseBlocks(bool allow) noexcept {
    shared.allowMouseBlocks = allow ? 1 : 0;
}

void UnblockMouse() noexcept {
    if (shared.mouseBlocked == 0) {
        return;
    }
    shared.mouseBlocked = 0;
    // The handle stays as it is, on purpose: once lifted, a block is never put up again.
    if (shared.mouseBlockHook != 0) {
        UnhookWindowsHookEx(hostlink::ToHook(shared.mouseBlockHook));
    }
}

} // namespace input
