#include "hostlink/shared_section.h"

#include "hostlink/shared_variable.h"

namespace hostlink {

// All zero but the permission to block the mouse.
GHOSTHAND_SHARED_IN(".shared")
constinit SharedSection shared = {
    0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, {}, {}, 0, /*allowMouseBlocks*/ 1, 0, 0, 0};

} // namespace hostlink
