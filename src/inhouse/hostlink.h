// Stand-in for the library hostlink: message numbers that the host program's controls answer.
#pragma once

#include <windows.h>

// Sent to a CAD tree; the requests are in ghosthand/host_contract.h (cad_tree). Valid from the load of the
// module on; 0 if the system had no number left.
extern const UINT hlWM_REQUEST_CAD_TREE_INFORMATION;
