#include "input/held_modifiers.h"

#include "hostlink/key_state.h"
#include "input/mouse.h"

namespace input {

namespace {

struct Modifier {
    int bit;
    BYTE virtualKey;
};

// In the order in which they are set and released.
constexpr Modifier kModifiers[] = {{kControlKey, VK_CONTROL}, {kShiftKey, VK_SHIFT}, {kAltKey, VK_MENU}};

void SetModifiers(const hostlink::HostWindow& target, int keys, BYTE state) noexcept {
    for (const Modifier& modifier : kModifiers) {
        if ((keys & modifier.bit) != 0) {
            hostlink::SetHostKeyState(target, modifier.virtualKey, state);
        }
    }
}

BOOL CALLBACK TakeFirst(HWND window, LPARAM found) noexcept {
    *reinterpret_cast<HWND*>(found) = window;
    return FALSE;
}

hostlink::HostWindow ReachableWindow(hostlink::HostWindow target) noexcept {
    if (GetWindowThreadProcessId(target.window, nullptr) != target.threadId) {
        target.window = nullptr;
        EnumThreadWindows(target.threadId, TakeFirst, reinterpret_cast<LPARAM>(&target.window));
    }
    return target;
}

} // namespace

HeldModifiers::HeldModifiers(const hostlink::HostWindow& target, int keys) noexcept
    : m_target(target), m_keys(keys) {
    SetModifiers(m_target, m_keys, hostlink::kKeyHeld);
}

HeldModifiers::~HeldModifiers() {
    SetModifiers(ReachableWindow(m_target), m_keys, hostlink::kKeyReleased);
}

} // namespace input
