#pragma once

#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <vector>

// The bytes of a type library file (format MSFT, little endian) and the tables at its beginning. Whatever
// lies outside of what the tables say throws std::runtime_error.
class TypeLibraryBytes {
public:
    static constexpr std::size_t kTypeInfoSegment = 0;
    static constexpr std::size_t kTypeInfoSize = 100;
    static constexpr std::size_t kTypeInfoMembers = 0x04;   // file offset of the member block
    static constexpr std::size_t kTypeInfoFunctions = 0x18; // 16-bit counts
    static constexpr std::size_t kTypeInfoVariables = 0x1A;
    static constexpr std::uint32_t kNone = 0xFFFFFFFF;

    // Begin and end in the file; both 0 where the library has no such segment.
    struct Range {
        std::size_t begin = 0;
        std::size_t end = 0;

        // The place of `size` bytes at `offset` of the range.
        std::size_t At(std::size_t offset, std::size_t size) const {
            if (offset > end - begin || size > end - begin - offset)
                throw std::runtime_error("a part of the file is shorter than its own tables say");
            return begin + offset;
        }
    };

    explicit TypeLibraryBytes(std::vector<std::uint8_t>& bytes) : m_bytes(bytes) {
        constexpr std::size_t kHeaderSize = 0x54;
        constexpr std::size_t kHeaderFlags = 0x14;
        constexpr std::uint32_t kHeaderHasHelpLibrary = 0x100; // the header is one field longer
        constexpr std::size_t kHeaderTypeCount = 0x20;
        m_typeCount = Read32(kHeaderTypeCount);
        m_directory = kHeaderSize + (Read32(kHeaderFlags) & kHeaderHasHelpLibrary ? 4 : 0) + 4 * m_typeCount;
    }

    std::size_t TypeCount() const { return m_typeCount; }
    // The entry of a segment in the directory: offset, length, two constants.
    std::size_t Entry(std::size_t segment) const { return m_directory + segment * 16; }
    Range Segment(std::size_t segment) const {
        const std::size_t length = Read32(Entry(segment) + 4);
        if (length == 0)
            return {};
        const std::size_t begin = Read32(Entry(segment));
        Check(begin, length);
        return {begin, begin + length};
    }
    std::size_t TypeInfo(std::size_t type) const {
        return Segment(kTypeInfoSegment).At(type * kTypeInfoSize, kTypeInfoSize);
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
    void Write32(std::size_t position, std::uint32_t value) {
        Write16(position, static_cast<std::uint16_t>(value));
        Write16(position + 2, static_cast<std::uint16_t>(value >> 16));
    }

private:
    std::vector<std::uint8_t>& m_bytes;
    std::size_t m_typeCount = 0;
    std::size_t m_directory = 0;
};
