// The verb that names the programs which keep files from being replaced.
#pragma once

#include "ghosthand/verbs.h"

namespace apps {

// [PATH [--output FILE]]. With --output the lines go to a file, in UTF-16, for installers.
int Holders(Arguments arguments);

} // namespace apps
