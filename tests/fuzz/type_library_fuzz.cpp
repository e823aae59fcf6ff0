// Input: a type library file.
#include "finish_type_library.h"

#include <stdexcept>
#include <string_view>

#include "fuzz/check.h"

namespace {

using Library = std::vector<std::uint8_t>;

constexpr std::size_t kStoredZero = 12; // bytes of the value that may be added
constexpr std::size_t kTypeInfoSegment = 0;
constexpr std::size_t kValueSegment = 11;
constexpr std::size_t kSegmentCount = 15;

std::uint32_t At(const Library& library, std::size_t position) {
    std::uint32_t value = 0;
    for (std::size_t byte = 0; byte < sizeof value; ++byte)
        value |= std::uint32_t{library.at(position + byte)} << (8 * byte);
    return value;
}

std::size_t TypeCount(const Library& library) {
    return At(library, 0x20);
}

// Where the file says that a segment begins; its length follows.
std::size_t SegmentEntry(const Library& library, std::size_t segment) {
    const std::size_t header = (At(library, 0x14) & 0x100) != 0 ? 0x58 : 0x54;
    return header + 4 * TypeCount(library) + 16 * segment;
}

// Whether each part of a library was found again behind or before the bytes that were added.
void CheckPlaces(const Library& library, const Library& finished) {
    const std::size_t values = SegmentEntry(library, kValueSegment);
    const std::uint32_t added = At(library, values) + At(library, values + 4);
    const auto isMoved = [&](std::uint32_t before, std::uint32_t after) {
        return after == (before == 0xFFFFFFFF || before < added ? before : before + kStoredZero);
    };
    Check(At(finished, values + 4) == At(library, values + 4) + kStoredZero,
          "the added value is among the values");
    for (std::size_t segment = 0; segment < kSegmentCount; ++segment) {
        const std::size_t entry = SegmentEntry(library, segment);
        Check(segment == kValueSegment ? At(finished, entry) == At(library, entry)
                                       : isMoved(At(library, entry), At(finished, entry)),
              "each segment is where the file says");
    }
    const std::uint32_t types = At(library, SegmentEntry(library, kTypeInfoSegment));
    const std::uint32_t finishedTypes = At(finished, SegmentEntry(library, kTypeInfoSegment));
    for (std::size_t type = 0; type < TypeCount(library); ++type)
        Check(isMoved(At(library, types + 100 * type + 4), At(finished, finishedTypes + 100 * type + 4)),
              "each type's members are where the file says");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const Library library(data, data + size);
    Library finished;
    try {
        finished = FinishTypeLibrary(library);
    } catch (const std::runtime_error& error) {
        Check(std::string_view(error.what()).size() > 10, "an error says what is wrong");
        return 0;
    }
    Check(finished.size() == size || finished.size() == size + kStoredZero, "one value at most is added");
    if (finished.size() != size)
        CheckPlaces(library, finished);
    try {
        Check(FinishTypeLibrary(finished) == finished, "a finished library comes back unchanged");
    } catch (const std::runtime_error&) {
        Check(false, "a finished library can be read");
    }
    return 0;
}
