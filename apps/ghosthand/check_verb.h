// The verb that says what is wrong with an installation.
#pragma once

#include "ghosthand/verbs.h"

namespace apps {

// [--mend] [PROGRAM]. Fails when it reports a problem.
int Check(Arguments arguments);

} // namespace apps
