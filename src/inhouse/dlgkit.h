// Stand-in for the library dlgkit: texts of list and combo boxes, and the group combo's private messages.
// Controls may belong to another process. Texts are ANSI (the system code page), indices 0-based.
#pragma once

#include <string>
#include <windows.h>

namespace dkListHelpers {

// The text of one item. Empty when the index is out of range, the window is no such control or is gone, or
// the control keeps no strings (owner-drawn without LBS_HASSTRINGS or CBS_HASSTRINGS). The last argument
// has no effect here; callers pass false.
std::string get_list_item(HWND listBox, int index, bool);
std::string get_combo_item(HWND comboBox, int index, bool);

} // namespace dkListHelpers

// Asks a group combo for the item of that name below the heading of that name.
struct dkGroupComboQuery {
    std::string heading;
    std::string item;
};

namespace dkGroupComboHelpers {

// The bytes that travel with group_combo::kFindByNames of ghosthand/host_contract.h: heading, NUL, item,
// NUL. A NUL inside a name ends that name.
std::string pack_query(const dkGroupComboQuery& query);

// Whether the combo box is a group combo, which answers the heading of item -1 with -1; any other combo
// box answers 0.
bool check_combo_type(HWND comboBox);

} // namespace dkGroupComboHelpers
