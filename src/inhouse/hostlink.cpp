#include "inhouse/hostlink.h"

#include "ghosthand/host_contract.h"

// Runs under the loader lock, in the driven programs too: registering is all that may happen here.
const UINT hlWM_REQUEST_CAD_TREE_INFORMATION =
    RegisterWindowMessageA(ghosthand::host_contract::message_name::kCadTree);
