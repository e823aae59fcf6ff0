// Screen coordinates in the units of absolute mouse input.
#pragma once

#include <cstdint>

namespace input {

// A pixel column (or row) of a desktop that is `extent` pixels wide (or high), as 0 on the first pixel to
// 65535 on the last one. Coordinates outside the desktop give values beyond these; a desktop of one pixel
// or less gives 0.
std::int32_t ToAbsoluteInput(std::int64_t coordinate, std::int32_t extent) noexcept;

} // namespace input
