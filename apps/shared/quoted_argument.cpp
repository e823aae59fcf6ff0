#include "shared/quoted_argument.h"

namespace apps {

std::string QuotedArgument(std::string_view argument) {
    if (!argument.empty() && argument.find_first_of(" \t\n\v\"") == std::string_view::npos) {
        return std::string(argument);
    }
    std::string quoted = "\"";
    std::size_t backslashes = 0;
    for (const char character : argument) {
        // Backslashes count double where a quote follows, and only there.
        if (character == '"') {
            quoted.append(backslashes + 1, '\\');
        }
        backslashes = character == '\\' ? backslashes + 1 : 0;
        quoted += character;
    }
    return quoted.append(backslashes, '\\') + '"';
}

} // namespace apps
