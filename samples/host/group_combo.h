// A combo box whose list mixes headings with items. A heading cannot be chosen.
#pragma once

#include "control.h"

#include <string>
#include <vector>

namespace sample_host {

struct GroupComboItem {
    std::string text;
    bool isHeading = false;
};

// An item belongs to the heading above it. The first item that is no heading is selected.
HWND AddGroupCombo(HWND parent, Area area, int id, const std::vector<GroupComboItem>& items);

} // namespace sample_host
