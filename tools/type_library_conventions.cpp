#include "type_library_conventions.h"

#include <cstddef>
#include <stdexcept>

namespace {

constexpr std::size_t kHeaderSize = 0x54;
constexpr std::size_t kHeaderFlags = 0x14;
constexpr std::uint32_t kHeaderHasHelpLibrary = 0x100; // the header is one field longer
constexpr std::size_t kHeaderTypeCount = 0x20;

constexpr std::size_t kSegmentEntrySize = 16; // offset, length, two constants
constexpr std::size_t kTypeInfoSegment = 0;
constexpr std::size_t kImportFileSegment = 2;
constexpr std::size_t kNameSegment = 7;
constexpr std::size_t kTypeDescriptionSegment = 9;

constexpr std::size_t kTypeInfoSize = 100;
constexpr std::size_t kTypeInfoMembers = 0x04; // file offset of the member block
constexpr std::size_t kTypeInfoFunctions = 0x18;
constexpr std::size_t kTypeInfoVariables = 0x1A;
constexpr std::uint32_t kTypeKindMask = 0xF;
constexpr std::uint32_t kEnumeration = 0;

constexpr std::size_t kNameFlags = 9;
constexpr std::uint8_t kNamesOneType = 0x10;

constexpr std::size_t kFunctionParameters = 0x14; // 16-bit counts: all of them, optional ones
constexpr std::size_t kFunctionOptional = 0x16;
constexpr std::size_t kParameterSize = 12; // type, name, flags
constexpr std::uint32_t kParameterOptional = 0x10;
constexpr std::uint32_t kParameterHasDefault = 0x20;

constexpr std::uint32_t kVariant = 12;
constexpr std::uint32_t kPointer = 26;
constexpr std::uint32_t kUserDefined = 29;
constexpr std::uint32_t kUserDefinedSummary = 0x7FFF; // a type's summary: how its values are handed over
constexpr std::uint32_t kLong = 3;
constexpr std::uint32_t kByReference = 0x4000;

class Conventions {
public:
    explicit Conventions(std::vector<std::uint8_t>& library) : m_bytes(library) {
        m_typeCount = Read32(kHeaderTypeCount);
        m_directory = kHeaderSize + (Read32(kHeaderFlags) & kHeaderHasHelpLibrary ? 4 : 0) + 4 * m_typeCount;
    }

    // An enumeration's values are handed over as VT_I4; widl treats them as unknown.
    void SummarizeEnumerations() {
        const Range descriptions = Segment(kTypeDescriptionSegment);
        const Range types = Segment(kTypeInfoSegment);
        for (std::size_t position = descriptions.begin; position < descriptions.end; position += 8) {
            const std::uint32_t target = Read32(position + 4);
            if (Read32(position) == (kUserDefinedSummary << 16 | kUserDefined) &&
                target % kTypeInfoSize == 0 && (Read32(types.begin + target) & kTypeKindMask) == kEnumeration)
                Write16(position + 2, kLong);
            if (Read32(position) == (kUserDefinedSummary << 16 | kPointer) && !(target & 0x80000000) &&
                Read32(descriptions.begin + target) == (kLong << 16 | kUserDefined))
                Write16(position + 2, kLong | kByReference);
        }
    }

    // The locale of an imported library is its own; widl stores that of the importing one. Only the standard
    // OLE library is imported, which has none.
    void ClearLocalesOfImports() {
        const Range imports = Segment(kImportFileSegment);
        for (std::size_t position = imports.begin; position < imports.end;) {
            Write16(position + 4, 0);
            Write16(position + 6, 0);
            const std::size_t length = Read16(position + 12) >> 2;
            position += 12 + ((2 + length + 3) & ~std::size_t{3});
        }
    }

    void CorrectMembers() {
        for (std::size_t type = 0; type < m_typeCount; ++type) {
            const std::size_t typeInfo = Segment(kTypeInfoSegment).begin + type * kTypeInfoSize;
            const std::size_t functions = Read16(typeInfo + kTypeInfoFunctions);
            const std::size_t count = functions + Read16(typeInfo + kTypeInfoVariables);
            if (count == 0)
                continue;
            const std::size_t members = Read32(typeInfo + kTypeInfoMembers);
            const std::size_t names = members + 4 + Read32(members) + 4 * count;
            for (std::size_t member = 0; member < count; ++member)
                ShareName(Read32(names + 4 * member), type);
            std::size_t record = members + 4;
            for (std::size_t function = 0; function < functions; ++function) {
                CountOptionalVariants(record);
                record += Read16(record);
            }
        }
    }

private:
    struct Range {
        std::size_t begin = 0;
        std::size_t end = 0;
    };

    // A name that means one type only is marked. widl leaves the mark on a coclass's name that is a member's
    // name, too; a reader that trusts it does not find the member.
    void ShareName(std::size_t name, std::size_t type) {
        const std::size_t position = Segment(kNameSegment).begin + name;
        if (Read32(position) != type * kTypeInfoSize)
            Write16(position + kNameFlags - 1,
                    static_cast<std::uint16_t>(Read16(position + kNameFlags - 1) & ~(kNamesOneType << 8)));
    }

    // The count tells how many VARIANTs without a default value a call may omit at the end; widl counts
    // optional parameters of every type.
    void CountOptionalVariants(std::size_t record) {
        const auto optional = static_cast<std::int16_t>(Read16(record + kFunctionOptional));
        if (optional <= 0)
            return;
        std::uint16_t variants = 0;
        const std::size_t end = record + Read16(record);
        for (std::size_t index = Read16(record + kFunctionParameters); index > 0; --index) {
            const std::size_t parameter = end - index * kParameterSize;
            if ((Read32(parameter) & 0xFFFF) == kVariant &&
                (Read32(parameter + 8) & (kParameterOptional | kParameterHasDefault)) == kParameterOptional)
                ++variants;
        }
        Write16(record + kFunctionOptional, variants);
    }

    // Empty where the library has no such segment.
    Range Segment(std::size_t segment) const {
        const std::size_t entry = m_directory + segment * kSegmentEntrySize;
        const std::size_t length = Read32(entry + 4);
        if (length == 0)
            return {};
        return {Read32(entry), Read32(entry) + length};
    }

    void Check(std::size_t position, std::size_t size) const {
        if (position > m_bytes.size() || size > m_bytes.size() - position)
            throw std::runtime_error("the file is shorter than its own tables say");
    }
    std::uint16_t Read16(std::size_t position) const {
        Check(position, 2);
        return static_cast<std::uint16_t>(m_bytes[position] | m_bytes[position + 1] << 8);
    }
    std::uint32_t Read32(std::size_t position) const {
        return Read16(position) | static_cast<std::uint32_t>(Read16(position + 2)) << 16;
    }
    void Write16(std::size_t position, std::uint16_t value) {
        Check(position, 2);
        m_bytes[position] = static_cast<std::uint8_t>(value);
        m_bytes[position + 1] = static_cast<std::uint8_t>(value >> 8);
    }

    std::vector<std::uint8_t>& m_bytes;
    std::size_t m_typeCount = 0;
    std::size_t m_directory = 0;
};

} // namespace

void FollowMicrosoftConventions(std::vector<std::uint8_t>& library) {
    Conventions conventions(library);
    conventions.SummarizeEnumerations();
    conventions.ClearLocalesOfImports();
    conventions.CorrectMembers();
}
