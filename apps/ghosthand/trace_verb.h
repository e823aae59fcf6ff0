// The verb that runs a program with its use of Ghosthand traced.
#pragma once

#include "ghosthand/verbs.h"

namespace apps {

// [--folder FOLDER] PROGRAM [ARGUMENT...]: gives the program's exit code.
int Trace(Arguments arguments);

} // namespace apps
