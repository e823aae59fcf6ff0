// A number that stands for what was written into a section which any process can write. Not against forgery,
// which nothing there prevents, but against what is written at random or by another script.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>

namespace hostlink {

class Digest {
public:
    void Add(std::uint64_t value) noexcept {
        constexpr std::uint64_t kOddMultiplier = 0x9E3779B97F4A7C15;
        m_value = (m_value ^ value) * kOddMultiplier;
        m_value ^= m_value >> 29;
    }
    // Bytes that do not fill a last group of eight count as if zeros followed.
    void Add(std::span<const char> bytes) noexcept {
        for (std::size_t offset = 0; offset < bytes.size(); offset += sizeof(std::uint64_t)) {
            std::uint64_t value = 0;
            const std::size_t left = bytes.size() - offset;
            std::memcpy(&value, bytes.data() + offset, left < sizeof value ? left : sizeof value);
            Add(value);
        }
    }
    std::uint64_t Value() const noexcept { return m_value; }

private:
    std::uint64_t m_value = 1;
};

} // namespace hostlink
