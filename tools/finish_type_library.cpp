#include "finish_type_library.h"

#include <algorithm>
#include <compare>
#include <cstddef>
#include <iterator>
#include <stdexcept>

#include "type_library_bytes.h"
#include "type_library_conventions.h"

namespace {

constexpr std::uint32_t kMagic = 0x5446534D; // "MSFT"
constexpr std::size_t kSegmentCount = 15;
constexpr std::size_t kValueSegment = 11;

constexpr std::size_t kTypeInfoSizeHint = 0x08; // two estimates; Windows writes 0

// Behind the records of a member block: identifier, name and place of each member.
constexpr std::size_t kMemberTableEntries = 3 * sizeof(std::uint32_t);

constexpr std::size_t kFunctionFlags = 0x10;
constexpr std::uint32_t kFunctionHasDefaults = 0x1000;
constexpr std::size_t kFunctionParameters = 0x14; // 16-bit count
constexpr std::size_t kFunctionFixedSize = 0x18;
constexpr std::size_t kParameterSize = 12; // type, name, flags
constexpr std::uint32_t kParameterHasDefault = 0x20;
constexpr std::uint32_t kHyper = 0x80140014;

// Type tag, value, padding to a multiple of four.
constexpr std::uint8_t kHyperZero[] = {0x14, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0x57, 0x57};

class Finisher : private TypeLibraryBytes {
public:
    explicit Finisher(std::vector<std::uint8_t>& bytes) : TypeLibraryBytes(bytes), m_bytes(bytes) {
        if (Read32(0) != kMagic)
            throw std::runtime_error("this is not a type library");
        if (Length(kTypeInfoSegment) != TypeCount() * kTypeInfoSize)
            throw std::runtime_error("the segment of type descriptions has an unexpected size");
        CheckParts();
    }

    void Finish() {
        std::vector<std::size_t> unfinished;
        for (std::size_t type = 0; type < TypeCount(); ++type) {
            CollectUnfinished(TypeInfo(type), unfinished);
            Write32(TypeInfo(type) + kTypeInfoSizeHint, 0);
            Write32(TypeInfo(type) + kTypeInfoSizeHint + sizeof(std::uint32_t), 0);
        }
        if (unfinished.empty())
            return;
        if (Offset(kValueSegment) == kNone)
            throw std::runtime_error("there is no segment for stored values");
        for (const std::size_t position : unfinished)
            Write32(position, Length(kValueSegment));
        AppendHyperZero();
    }

private:
    std::uint32_t Offset(std::size_t segment) const { return Read32(Entry(segment)); }
    std::uint32_t Length(std::size_t segment) const { return Read32(Entry(segment) + sizeof(std::uint32_t)); }

    // Each part lies inside the file, and no two in one place: what is written to one would damage the other.
    void CheckParts() const {
        struct Part {
            std::size_t begin;
            std::size_t end;
            auto operator<=>(const Part&) const = default;
        };
        // An empty part counts, too: it may grow.
        std::vector<Part> parts;
        const auto add = [&](std::size_t begin, std::size_t size) {
            Check(begin, size);
            if (begin < Entry(kSegmentCount))
                throw std::runtime_error("a part of the file lies among its own tables");
            parts.push_back({begin, begin + size});
        };
        for (std::size_t segment = 0; segment < kSegmentCount; ++segment)
            if (Offset(segment) != kNone)
                add(Offset(segment), Length(segment));
        for (std::size_t type = 0; type < TypeCount(); ++type) {
            const std::size_t members = Read32(TypeInfo(type) + kTypeInfoMembers);
            const std::size_t count =
                Read16(TypeInfo(type) + kTypeInfoFunctions) + Read16(TypeInfo(type) + kTypeInfoVariables);
            if (count > 0)
                add(members, sizeof(std::uint32_t) + Read32(members) + count * kMemberTableEntries);
            else if (members != kNone)
                Check(members, 0);
        }
        std::sort(parts.begin(), parts.end());
        const auto overlap = [](const Part& part, const Part& next) { return next.begin < part.end; };
        if (std::adjacent_find(parts.begin(), parts.end(), overlap) != parts.end())
            throw std::runtime_error("two parts of the file lie in one place");
    }

    // Appends the positions of the default values that widl left open in one type's functions.
    void CollectUnfinished(std::size_t typeInfo, std::vector<std::size_t>& unfinished) const {
        const std::size_t functionCount = Read16(typeInfo + kTypeInfoFunctions);
        if (functionCount == 0)
            return;
        const std::size_t members = Read32(typeInfo + kTypeInfoMembers);
        std::size_t record = members + sizeof(std::uint32_t);
        const std::size_t end = record + Read32(members);
        for (std::size_t function = 0; function < functionCount; ++function) {
            const std::size_t size = Read16(record);
            const std::size_t parameterCount = Read16(record + kFunctionParameters);
            const bool hasDefaults = (Read32(record + kFunctionFlags) & kFunctionHasDefaults) != 0;
            const std::size_t tail =
                parameterCount * (kParameterSize + (hasDefaults ? sizeof(std::uint32_t) : 0));
            if (size < kFunctionFixedSize + tail || record + size > end)
                throw std::runtime_error("a function record has an unexpected size");
            for (std::size_t index = 0; hasDefaults && index < parameterCount; ++index) {
                const std::size_t parameter = record + size - (parameterCount - index) * kParameterSize;
                const std::size_t value = record + size - tail + index * sizeof(std::uint32_t);
                if (!(Read32(parameter + 8) & kParameterHasDefault) || Read32(value) != kNone)
                    continue;
                if (Read32(parameter) != kHyper)
                    throw std::runtime_error("a default value is missing of a parameter that is no hyper");
                unfinished.push_back(value);
            }
            record += size;
        }
    }

    // Everything behind the segment of stored values moves back.
    void AppendHyperZero() {
        const std::uint32_t end = Offset(kValueSegment) + Length(kValueSegment);
        const auto moved = [end](std::uint32_t offset) {
            return offset != kNone && offset >= end ? offset + std::uint32_t{sizeof kHyperZero} : offset;
        };
        for (std::size_t type = 0; type < TypeCount(); ++type) {
            const std::size_t members = TypeInfo(type) + kTypeInfoMembers;
            Write32(members, moved(Read32(members)));
        }
        for (std::size_t segment = 0; segment < kSegmentCount; ++segment)
            if (segment != kValueSegment)
                Write32(Entry(segment), moved(Offset(segment)));
        Write32(Entry(kValueSegment) + sizeof(std::uint32_t),
                Length(kValueSegment) + std::uint32_t{sizeof kHyperZero});
        m_bytes.insert(m_bytes.begin() + end, std::begin(kHyperZero), std::end(kHyperZero));
    }

    std::vector<std::uint8_t>& m_bytes;
};

} // namespace

std::vector<std::uint8_t> FinishTypeLibrary(std::vector<std::uint8_t> bytes) {
    Finisher(bytes).Finish();
    FollowMicrosoftConventions(bytes);
    return bytes;
}
