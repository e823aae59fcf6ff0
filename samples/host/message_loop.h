// The message loop of the GUI thread.
#pragma once

namespace sample_host {

// Runs until WM_QUIT; returns its exit code.
int RunMessageLoop();

} // namespace sample_host
