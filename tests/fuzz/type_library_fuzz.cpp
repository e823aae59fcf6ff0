// Input: a type library file.
#include "finish_type_library.h"

#include <stdexcept>
#include <string_view>

#include "fuzz/check.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    constexpr std::size_t kStoredZero = 12; // bytes of the value that may be added
    const std::vector<std::uint8_t> library(data, data + size);
    std::vector<std::uint8_t> finished;
    try {
        finished = FinishTypeLibrary(library);
    } catch (const std::runtime_error& error) {
        Check(std::string_view(error.what()).size() > 10, "an error says what is wrong");
        return 0;
    }
    Check(finished.size() == size || finished.size() == size + kStoredZero, "one value at most is added");
    try {
        Check(FinishTypeLibrary(finished) == finished, "a finished library comes back unchanged");
    } catch (const std::runtime_error&) {
        Check(false, "a finished library can be read");
    }
    return 0;
}
