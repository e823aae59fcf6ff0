// Many actions in a row, by one script, and what the processes hold before and after.
#pragma once

#include "fault/options.h"
#include "fault/report.h"

namespace fault_tests {

void RunActions(const Options& options, Report& report);

} // namespace fault_tests
