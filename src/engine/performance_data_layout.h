// Byte layout of the registry's performance data as 64-bit Windows hands it out: a header, object types one
// behind the other, in each its counter definitions, then pairs of instance definition and counter block.
// Every record but the header begins with its own length. thread_idle.cpp holds this against winperf.h.
#pragma once

#include <cstddef>
#include <cstdint>

namespace engine::performance_layout {

namespace header {
inline constexpr std::size_t kLength = 24;
inline constexpr std::size_t kObjectCount = 28;
inline constexpr std::size_t kSize = 88;
} // namespace header

namespace object {
inline constexpr std::size_t kDefinitionLength = 4; // the first instance follows the definitions
inline constexpr std::size_t kHeaderLength = 8;     // the first counter definition follows the header
inline constexpr std::size_t kNameIndex = 12;
inline constexpr std::size_t kCounterCount = 32;
inline constexpr std::size_t kInstanceCount = 40; // signed, -1 when the object type has no instances
inline constexpr std::size_t kSize = 64;
} // namespace object

namespace counter {
inline constexpr std::size_t kNameIndex = 4;
inline constexpr std::size_t kValueOffset = 36; // of the value in each counter block
inline constexpr std::size_t kSize = 40;
} // namespace counter

namespace instance {
inline constexpr std::size_t kSize = 24;
}

namespace counter_block {
inline constexpr std::size_t kSize = 4;
}

// Indices of names, the same in every language of Windows.
inline constexpr std::uint32_t kThreadObject = 232;
inline constexpr std::uint32_t kThreadState = 46;
inline constexpr std::uint32_t kThreadWaitReason = 336;
inline constexpr std::uint32_t kThreadId = 804;

} // namespace engine::performance_layout
