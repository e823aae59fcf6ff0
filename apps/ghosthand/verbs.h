// The verbs of the command line, each in a file of its own. A verb takes the arguments behind it (UTF-8) and
// gives the program's exit code.
#pragma once

#include <span>
#include <string>

namespace apps {

using Arguments = std::span<const std::string>;

inline constexpr int kDone = 0;
inline constexpr int kFailed = 1;     // nothing found, or not done; what was wrong has been said
inline constexpr int kWrongUsage = 2; // says nothing: the caller shows how the verb is used

int At(Arguments arguments);
int Windows(Arguments arguments);

} // namespace apps
