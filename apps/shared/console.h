// A console program's arguments and output. Texts are UTF-8.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace apps {

// The command line without the program itself, as the system parses it.
std::vector<std::string> CommandLineArguments();

// Write at once. A console gets the characters, a file or a pipe the bytes. Without effect where the program
// has no such output.
void Print(std::string_view text);
void PrintError(std::string_view text);

} // namespace apps
