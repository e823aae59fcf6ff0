// A tree of options: a window of the host's own class, which answers the requests of the contract. A click
// toggles a check box, a double click on another value edits it, the wheel scrolls.
#pragma once

#include "control.h"

#include <string>
#include <vector>

namespace sample_host {

struct Option {
    enum class Kind { Group, CheckBox, Text };

    std::string label;
    Kind kind = Kind::Group;
    std::string value{}; // "1" or "0" of a check box
    bool readOnly = false;
    std::vector<Option> children{};
};

// The root is not shown; what it holds is.
HWND AddOptionTree(HWND parent, Area area, int id, Option root);

} // namespace sample_host
