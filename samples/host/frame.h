// The main window: an MDI frame with menu bar and status bar.
#pragma once

#include <string>
#include <windows.h>

namespace sample_host {

// Null when the window cannot be made.
HWND CreateFrame(const std::string& className);

HWND Frame();
HWND MdiClient();

// The window that owns a dialog which a command opens: the frame, or the dialog that has disabled it.
HWND DialogOwner();

// Ends the host with that exit code; callable from any thread.
void EndHost(int exitCode);

void SetStatus(const std::string& text);

} // namespace sample_host
