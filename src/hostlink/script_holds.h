// What the script that drives the desktop holds at the moment outside of its own process: modifier keys in
// the host's thread, mouse buttons, a global atom. A script that is ended lets go of nothing; as the record
// stands in a shared section of its own, the next script can.
#pragma once

#include <optional>

#include <windows.h>

namespace hostlink {

struct ScriptHolds {
    DWORD keysThreadId = 0; // the host's thread in which the keys are held
    unsigned keys = 0;      // modifier bits of the mouse operations
    unsigned buttons = 0;   // bit n: the mouse button with code n
    ATOM atom = 0;
};

// Each notes what this process holds from now on; 0 when it has let go.
void NoteHeldKeys(DWORD threadId, unsigned keys) noexcept;
void NoteHeldButtons(unsigned buttons) noexcept;
void NoteHeldAtom(ATOM atom) noexcept;

// What another process held when it ended; none if there is nothing, or if that process is alive. It is
// answered once.
std::optional<ScriptHolds> TakeAbandonedHolds() noexcept;

} // namespace hostlink
