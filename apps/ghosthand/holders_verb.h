// The verb that names the programs which keep files from being replaced.
#pragma once

#include "ghosthand/verbs.h"

namespace apps {

// [PATH [--output FILE PROCESS]]. With --output, which is for installers, the lines go to a file, in UTF-16,
// without the process of that number.
int Holders(Arguments arguments);

} // namespace apps
