// The keyboard state of the host's GUI thread.
#pragma once

#include "hostlink/host_window.h"

namespace hostlink {

inline constexpr BYTE kKeyHeld = 0xF0;
inline constexpr BYTE kKeyReleased = 0;

// Sets the state of one virtual key in the keyboard state of the window's thread. Nothing is sent if the
// hook cannot be installed.
void SetHostKeyState(const HostWindow& target, BYTE virtualKey, BYTE state) noexcept;

// The same, given up when the host does not answer in 5 seconds.
void TrySetHostKeyState(const HostWindow& target, BYTE virtualKey, BYTE state) noexcept;

} // namespace hostlink
