#pragma once

#include <cstdint>
#include <vector>

// Finishes a type library that widl wrote (format MSFT). widl cannot store the default value of a 64-bit
// parameter: it leaves -1 where the offset of the value belongs, and readers then refuse the whole function.
// One stored value is added, the 64-bit zero, and every such parameter pointed at it; zero is the only 64-bit
// default that Ghosthand.idl uses. A finished library comes back unchanged. Throws std::runtime_error for
// what is no type library or a damaged one.
std::vector<std::uint8_t> FinishTypeLibrary(std::vector<std::uint8_t> bytes);
