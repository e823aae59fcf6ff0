#include "type_library_conventions.h"

#include <cstddef>

#include "type_library_bytes.h"

namespace {

constexpr std::size_t kImportFileSegment = 2;
constexpr std::size_t kNameSegment = 7;
constexpr std::size_t kTypeDescriptionSegment = 9;

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

class Conventions : private TypeLibraryBytes {
public:
    using TypeLibraryBytes::TypeLibraryBytes;

    // An enumeration's values are handed over as VT_I4; widl treats them as unknown.
    void SummarizeEnumerations() {
        const Range descriptions = Segment(kTypeDescriptionSegment);
        const std::size_t size = descriptions.end - descriptions.begin;
        for (std::size_t offset = 0; offset < size; offset += 8) {
            const std::size_t position = descriptions.At(offset, 8);
            const std::uint32_t target = Read32(position + 4);
            if (Read32(position) == (kUserDefinedSummary << 16 | kUserDefined) &&
                target % kTypeInfoSize == 0 && IsEnumeration(target / kTypeInfoSize))
                Write16(position + 2, kLong);
            if (Read32(position) == (kUserDefinedSummary << 16 | kPointer) && !(target & 0x80000000) &&
                Read32(descriptions.At(target, 8)) == (kLong << 16 | kUserDefined))
                Write16(position + 2, kLong | kByReference);
        }
    }

    // The locale of an imported library is its own; widl stores that of the importing one. Only the standard
    // OLE library is imported, which has none.
    void ClearLocalesOfImports() {
        const Range imports = Segment(kImportFileSegment);
        const std::size_t size = imports.end - imports.begin;
        for (std::size_t offset = 0; offset < size;) {
            const std::size_t position = imports.At(offset, 14);
            Write32(position + 4, 0);
            const std::size_t length = Read16(position + 12) >> 2;
            offset += 12 + ((2 + length + 3) & ~std::size_t{3});
        }
    }

    void CorrectMembers() {
        for (std::size_t type = 0; type < TypeCount(); ++type) {
            const std::size_t typeInfo = TypeInfo(type);
            const std::size_t functions = Read16(typeInfo + kTypeInfoFunctions);
            const std::size_t count = functions + Read16(typeInfo + kTypeInfoVariables);
            if (count == 0)
                continue;
            const std::size_t members = Read32(typeInfo + kTypeInfoMembers);
            const std::size_t names = members + 4 + Read32(members) + 4 * count;
            for (std::size_t member = 0; member < count; ++member)
                ShareName(Read32(names + 4 * member), type);
            const Range records = {members + 4, members + 4 + Read32(members)};
            for (std::size_t function = 0, offset = 0; function < functions; ++function) {
                const std::size_t record = records.At(offset, kFunctionOptional + 2);
                const std::size_t size = Read16(record);
                records.At(offset, size);
                CountOptionalVariants(record);
                offset += size;
            }
        }
    }

private:
    bool IsEnumeration(std::size_t type) const {
        return (Read32(TypeInfo(type)) & kTypeKindMask) == kEnumeration;
    }

    // A name that means one type only is marked. widl leaves the mark on a coclass's name that is a member's
    // name, too; a reader that trusts it does not find the member.
    void ShareName(std::size_t name, std::size_t type) {
        const std::size_t position = Segment(kNameSegment).At(name, kNameFlags + 1);
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
};

} // namespace

void FollowMicrosoftConventions(std::vector<std::uint8_t>& library) {
    Conventions conventions(library);
    conventions.SummarizeEnumerations();
    conventions.ClearLocalesOfImports();
    conventions.CorrectMembers();
}
