// What the runner does, a mode each.
#pragma once

#include "fault/options.h"
#include "fault/report.h"

namespace fault_tests {

// Either side ends, stops or closes its window in the middle of each step.
void RunFaultCases(const Options& options, Report& report);

// Somebody writes to the module's shared section while scripts drive two programs.
void RunHostileSection(const Options& options, Report& report);

// Many actions in a row, by one script, and what the processes hold before and after.
void RunActions(const Options& options, Report& report);

} // namespace fault_tests
