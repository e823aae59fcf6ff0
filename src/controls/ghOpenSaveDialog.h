// The system's dialog that opens or saves a file.
#pragma once

#include <string>

#include "engine/ghBaseWindow.h"

class ghOpenSaveDialog : public ghBaseWindow {
public:
    using ghBaseWindow::ghBaseWindow;

    // Types the name, a whole path or one in the folder that the dialog shows, and clicks the default button
    // (Open or Save); a dialog without that button just gets the name. Waits up to 5 seconds for the field
    // of the name; std::runtime_error if there is none.
    void File(const std::string& name) const;

    // The text of the address bar as it stands there, a label before the folder included; "Invalid" in a
    // dialog without an address bar.
    std::string Path() const;
};

namespace controls {

// Has what only the system's dialog has, and is shown and enabled. The search below is content with less.
bool IsOpenSaveDialog(HWND window);

// The topmost dialog of this kind that `from`'s program shows; null if there is none.
HWND FindOpenSaveDialog(HWND from);

} // namespace controls
