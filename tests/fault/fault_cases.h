// Either side ends, stops or closes its window in the middle of each step.
#pragma once

#include "fault/options.h"
#include "fault/report.h"

namespace fault_tests {

void RunFaultCases(const Options& options, Report& report);

} // namespace fault_tests
