// The verbs that register the server's module and undo it.
#pragma once

#include "ghosthand/verbs.h"

namespace apps {

// [--user] [FILE]: without a file the one that came with this tool. Mends what an earlier try left.
int Register(Arguments arguments);

// [--user] [FILE]: with a file only if it is the registered one.
int Unregister(Arguments arguments);

} // namespace apps
