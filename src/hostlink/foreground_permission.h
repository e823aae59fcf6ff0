// The permission to take the foreground, which only the program that has it can give.
#pragma once

namespace hostlink {

// Has the program that owns the foreground window allow every process to take the foreground. Without
// effect if there is no such window, the hook cannot be installed or the program hangs.
void PermitForeground() noexcept;

} // namespace hostlink
