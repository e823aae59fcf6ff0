// Modifier keys that the host sees as held.
#pragma once

#include "hostlink/host_window.h"

namespace input {

// Sets the modifier keys of a mouse operation in the keyboard state of the window's thread, for the lifetime
// of the object. No key messages are sent. The keys are released through another window of the thread when
// the operation made this one go away.
class HeldModifiers {
public:
    // `keys`: modifier bits of mouse.h.
    HeldModifiers(const hostlink::HostWindow& target, int keys) noexcept;
    ~HeldModifiers();
    HeldModifiers(const HeldModifiers&) = delete;
    HeldModifiers& operator=(const HeldModifiers&) = delete;

private:
    hostlink::HostWindow m_target;
    int m_keys; // modifier bits alone
};

// Releases the keys and buttons that a script held when it was ended, and the atom that it left. To be
// called when a script begins its work.
void ReleaseAbandonedInput() noexcept;

} // namespace input
