// The trace of a script's run: every call, what it waited for, and why it came to nothing, in a folder that a
// report is made from. docs/trace-format.md describes the files.
#pragma once

namespace trace {

// Begins the trace if the environment variable GHOSTHAND_TRACE names a folder, which is made where it does
// not exist. Looks once in a process. A trace that cannot be written is said once, on the standard error
// output and to the debugger; the script goes on.
void StartIfAsked() noexcept;

// Writes the last line. To be called while the process, or the module, goes.
void Finish() noexcept;

} // namespace trace
