// A program that writes to the module's shared section while scripts drive other programs.
#pragma once

#include "fault/options.h"
#include "fault/report.h"

namespace fault_tests {

void RunHostileSection(const Options& options, Report& report);

} // namespace fault_tests
