// What CTest tells a test about the build.
#pragma once

#include <algorithm>
#include <cstdlib>
#include <stdexcept>
#include <string>

namespace support {

// A path from the environment ("GHOSTHAND_DLL", "GHOSTHAND_SAMPLE_HOST") in the platform's spelling.
// Throws std::runtime_error when it is missing: the test was then not started by CTest.
inline std::string PathFromEnvironment(const char* name) {
    const char* value = std::getenv(name);
    if (value == nullptr) {
        throw std::runtime_error(std::string(name) + " is not set: run the test by ctest or test.sh");
    }
    std::string path = value;
    std::replace(path.begin(), path.end(), '/', '\\');
    return path;
}

} // namespace support
