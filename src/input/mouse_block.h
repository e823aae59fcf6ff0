// Keeping the user's hands off the mouse while a script drives it. The switches live in the shared section
// and are common to every process that has loaded the module.
#pragma once

namespace input {

// Whether input may block the mouse. Neither touches a block that is in force.
bool AllowMouseBlocks() noexcept;
void SetAllowMouseBlocks(bool allow) noexcept;

// Lifts a block that is in force.
void UnblockMouse() noexcept;

} // namespace input
