// Keeping the user's hands off the mouse while a script drives it. The switches live in the shared section
// and are common to every process that has loaded the module.
//
// The block is a hook of the thread that first sent real input, and goes when that thread ends. What a dead
// script leaves in the shared section (the flag, the handle of its hook) swallows nothing, and the next
// script installs no second hook: the user's mouse is then free, as after UnblockMouse().
#pragma once

namespace input {

// Whether input may block the mouse. Neither touches a block that is in force.
bool AllowMouseBlocks() noexcept;
void SetAllowMouseBlocks(bool allow) noexcept;

// Lets events pass until BlockMouseAfterInput(): injected input is not told from the user's.
void LetMouseThrough() noexcept;

// Blocks the mouse, if that is allowed. The first time on the whole desktop it installs the hook and shows
// the notice.
void BlockMouseAfterInput();

// Lifts a block that is in force, and takes down the notice if this process shows it.
void UnblockMouse() noexcept;

} // namespace input
