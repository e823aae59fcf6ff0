#include "input/desktop_mapping.h"

#include <algorithm>
#include <limits>

namespace input {

namespace {

constexpr float kLastPosition = 65535.0F;

// Toward zero, and never out of range.
std::int32_t Truncate(float value) noexcept {
    using Limits = std::numeric_limits<std::int32_t>;
    if (value >= -static_cast<float>(Limits::min()))
        return Limits::max();
    return static_cast<std::int32_t>(std::max(value, static_cast<float>(Limits::min())));
}

} // namespace

std::int32_t ToAbsoluteInput(std::int64_t coordinate, std::int32_t extent) noexcept {
    if (extent <= 1)
        return 0;
    // Some extents would come out one below, for the step is rounded to single precision.
    if (coordinate == extent - 1)
        return static_cast<std::int32_t>(kLastPosition);
    // Each result is stored as a float: a wider intermediate would truncate differently.
    const float step = kLastPosition / static_cast<float>(extent - 1);
    const float position = step * static_cast<float>(coordinate);
    return Truncate(position);
}

} // namespace input
