// Stand-in for the library dlgkit: texts of list and combo boxes, and the group combo's private messages.
// Controls may belong to another process. Texts are ANSI (the system code page), indices 0-based.
#pragma once

#include <string>
#include <windows.h>

#include "inhouse/group_combo_query.h"

namespace dkListHelpers {

// The text of one item. Empty when the index is out of range, the window is no such control or is gone, or
// the control keeps no strings (owner-drawn without LBS_HASSTRINGS or CBS_HASSTRINGS). The last argument
// has no effect here; callers pass false.
std::string get_list_item(HWND listBox, int index, bool);
std::string get_combo_item(HWND comboBox, int index, bool);

} // namespace dkListHelpers

namespace dkGroupComboHelpers {

// Whether the combo box is a group combo, which answers the heading of item -1 with -1; any other combo
// box answers 0.
bool check_combo_type(HWND comboBox);

} // namespace dkGroupComboHelpers
