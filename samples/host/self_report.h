// What the host tells about itself when another process asks (host_misbehaviour.h).
#pragma once

#include "host_misbehaviour.h"

#include <windows.h>

namespace sample_host {

// From now on, for the whole process: some are swallowed on their way, and nobody would notice.
void CountAccessViolations();

LRESULT Answer(Question question);

} // namespace sample_host
