// The list of the ribbon's forms, of which one is selected. A click selects another.
#pragma once

#include "control.h"

#include <string>
#include <vector>

namespace sample_host {

// The window's caption tells several widgets apart.
HWND AddRibbonWidget(HWND parent, Area area, int id, const char* caption, std::vector<std::string> forms);

} // namespace sample_host
