// The hook that swallows the user's mouse events while the shared section says that the mouse is blocked.
#pragma once

namespace hostlink {

// Installs the hook for all threads of the desktop and records its handle. The hook works while the calling
// thread dispatches messages, and ends with it. False if it cannot be installed or if a hook is recorded
// already: there is never a second one, which nobody could remove.
bool InstallMouseBlockHook() noexcept;

// Removes the recorded hook, but leaves its handle recorded, on purpose: once removed, the hook is never
// installed again.
void RemoveMouseBlockHook() noexcept;

} // namespace hostlink
