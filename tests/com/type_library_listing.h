// A type library as text, in the form of expected_type_library.txt.
#pragma once

#include <windows.h>

#include <oleauto.h>

#include <string>
#include <vector>

namespace support {

// One text of several lines for the library and each type in it. An interface is shown with the members of
// its own, as compiled clients see them; what is not as it should be is added in parentheses. A put has no
// help string: COM reads that by the member id, which a put shares with its get.
// Throws std::runtime_error for what cannot be read.
std::vector<std::string> TypeLibraryListing(ITypeLib& library);

} // namespace support
