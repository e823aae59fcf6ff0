#include "controlbars/key_walk.h"

#include "engine/synchronise.h"
#include "inhouse/syncutil.h"
#include "input/keyboard.h"

namespace controlbars {

bool WalkWithKey(const ghBaseWindow& window, int virtualKey, unsigned pause,
                 const std::function<WalkState()>& look) {
    bool keysUnderWay = false;
    for (;;) {
        const WalkState state = look();
        if (state == WalkState::Gone) {
            return false;
        }
        if (state == WalkState::NotYet) {
            input::PressKey(window, virtualKey, 0);
            SafeWaitWithMessageLoop(0, nullptr, pause, TRUE, nullptr);
            keysUnderWay = true;
        } else if (keysUnderWay) {
            // A slow host may have keys left that take the highlight on: the wrong item would be chosen.
            engine::Synchronise(window);
            keysUnderWay = false;
        } else {
            return true;
        }
    }
}

} // namespace controlbars
