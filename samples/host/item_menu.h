// The context menu of lists and tab controls: of the item under the cursor, or of the control itself.
#pragma once

#include <string>
#include <windows.h>

namespace sample_host {

// Opens a popup of the host's own kind. `item` is the text of the item, empty for the control's own menu.
void OpenItemMenu(POINT corner, const std::string& item);

} // namespace sample_host
