// What `check` looks at.
#pragma once

#include <optional>
#include <string>

#include "ghosthand/check_report.h"

namespace apps {

// `program`: the beginning of a file name, to be looked for among the running programs.
CheckFacts FindCheckFacts(const std::optional<std::string>& program);

} // namespace apps
