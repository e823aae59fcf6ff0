#include "controlbars/key_walk.h"

#include "engine/diagnostics.h"
#include "engine/synchronise.h"
#include "engine/wait_loop.h"
#include "input/keyboard.h"

namespace controlbars {

namespace {

class KeyWalk {
public:
    KeyWalk(const ghBaseWindow& window, int virtualKey, int pause, int items)
        : m_window(window), m_virtualKey(virtualKey), m_pause(pause), m_items(items) {}

    void PressKey() {
        // A key that was reached and left again has been overtaken by those behind it.
        m_waitsForHost = m_waitsForHost || m_wasReached || m_pressed > m_items;
        input::PressKey(m_window, m_virtualKey, 0);
        engine::PumpFor(m_pause);
        ++m_pressed;
        m_keysUnderWay = true;
        if (m_waitsForHost) {
            WaitForHost();
        }
    }

    // Whether the item is reached for good: a slow host may have keys left that take the highlight on.
    bool Stay() {
        if (!m_keysUnderWay) {
            return true;
        }
        m_wasReached = true;
        WaitForHost();
        return false;
    }

private:
    void WaitForHost() {
        engine::Synchronise(m_window);
        m_keysUnderWay = false;
    }

    const ghBaseWindow& m_window;
    int m_virtualKey;
    int m_pause;
    int m_items;
    int m_pressed = 0;
    bool m_wasReached = false;
    bool m_waitsForHost = false;
    bool m_keysUnderWay = false;
};

} // namespace

bool WalkWithKey(const ghBaseWindow& window, int virtualKey, int pause, int items,
                 const std::function<WalkState()>& look) {
    KeyWalk walk(window, virtualKey, pause, items);
    for (;;) {
        switch (look()) {
        case WalkState::NotOpen:
            engine::PumpFor(pause);
            break;
        case WalkState::NotYet:
            walk.PressKey();
            break;
        case WalkState::Reached:
            if (walk.Stay()) {
                return true;
            }
            break;
        case WalkState::Gone:
            engine::diagnostics::Report("An item of a menu was not reached with the keyboard.");
            return false;
        }
    }
}

} // namespace controlbars
