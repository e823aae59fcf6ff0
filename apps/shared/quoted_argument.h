// An argument on a command line.
#pragma once

#include <string>
#include <string_view>

namespace apps {

// Written so that CommandLineToArgvW, and with it nearly every program, gets exactly `argument`.
std::string QuotedArgument(std::string_view argument);

} // namespace apps
