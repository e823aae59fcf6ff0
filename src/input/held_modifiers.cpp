#include "input/held_modifiers.h"

#include "hostlink/key_state.h"
#include "hostlink/script_holds.h"
#include "input/mouse.h"
#include "input/mouse_event.h"

namespace input {

namespace {

struct Modifier {
    int bit;
    BYTE virtualKey;
};

// In the order in which they are set and released.
constexpr Modifier kModifiers[] = {{kControlKey, VK_CONTROL}, {kShiftKey, VK_SHIFT}, {kAltKey, VK_MENU}};

constexpr int kModifierBits = kControlKey | kShiftKey | kAltKey;

template <class Set>
void ForEachKey(int keys, Set set) noexcept {
    for (const Modifier& modifier : kModifiers) {
        if ((keys & modifier.bit) != 0) {
            set(modifier.virtualKey);
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
    : m_target(target), m_keys(keys & kModifierBits) {
    if (m_keys == 0) {
        return;
    }
    hostlink::NoteHeldKeys(m_target.threadId, static_cast<unsigned>(m_keys));
    ForEachKey(m_keys, [&](BYTE key) { hostlink::SetHostKeyState(m_target, key, hostlink::kKeyHeld); });
}

HeldModifiers::~HeldModifiers() {
    if (m_keys == 0) {
        return;
    }
    const hostlink::HostWindow reachable = ReachableWindow(m_target);
    ForEachKey(m_keys, [&](BYTE key) { hostlink::SetHostKeyState(reachable, key, hostlink::kKeyReleased); });
    hostlink::NoteHeldKeys(0, 0);
}

void ReleaseAbandonedInput() noexcept {
    const auto holds = hostlink::TakeAbandonedHolds();
    if (!holds) {
        return;
    }
    const hostlink::HostWindow host = ReachableWindow({nullptr, holds->keysThreadId});
    ForEachKey(static_cast<int>(holds->keys),
               [&](BYTE key) { hostlink::TrySetHostKeyState(host, key, hostlink::kKeyReleased); });
    ReleaseButtons(holds->buttons);
    if (holds->atom != 0) {
        GlobalDeleteAtom(holds->atom);
    }
}

} // namespace input
