// Input: numbers.
#include <fuzzer/FuzzedDataProvider.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include "controls/view_point_mapping.h"
#include "fuzz/check.h"
#include "input/desktop_mapping.h"

namespace {

using controls::ViewPoint;
using controls::ViewSize;

void CheckDesktop(FuzzedDataProvider& input) {
    using input::ToAbsoluteInput;
    const auto extent = input.ConsumeIntegral<std::int32_t>();
    auto first = input.ConsumeIntegral<std::int64_t>();
    auto second = input.ConsumeIntegral<std::int64_t>();
    if (input.ConsumeBool()) {
        first = extent - std::int64_t{2} + input.ConsumeIntegralInRange(0, 2); // about the last pixel
        second = first + 1;
    }
    if (first > second)
        std::swap(first, second);
    const std::int32_t position = ToAbsoluteInput(first, extent);
    if (extent <= 1) {
        Check(position == 0, "a desktop of one pixel has one position");
        return;
    }
    Check(ToAbsoluteInput(0, extent) == 0, "the first pixel is at 0");
    Check(ToAbsoluteInput(extent - 1, extent) == 65535, "the last pixel is at 65535");
    // Single precision has no room for the order of more pixels than that.
    if (extent <= 1 << 24)
        Check(position <= ToAbsoluteInput(second, extent), "positions have the order of pixels");
    Check(first < 0 ? position <= 0 : position >= 0, "positions have the side of pixels");
    const std::int64_t inside = (first & 0x7FFFFFFFFFFFFFFF) % extent;
    const std::int32_t insidePosition = ToAbsoluteInput(inside, extent);
    Check(insidePosition >= 0 && insidePosition <= 65535, "pixels of the desktop stay in it");
    Check(std::abs(insidePosition - inside * 65535 / (extent - 1)) <= 1, "positions are proportional");
}

// Whether the result is the exact one, but for what double precision may add or take away at an integer.
bool IsMapped(int mapped, int recorded, int reference, long double scale, int client) {
    constexpr long double kRounding = 1e-5L;
    const long double exact = (recorded - reference / 2.0L) * scale + (client + 1.0L) / 2 + 0.5L;
    const auto cut = [client](long double value) {
        return static_cast<int>(std::clamp(value, 0.0L, static_cast<long double>(client)));
    };
    return mapped >= cut(exact - kRounding) && mapped <= cut(exact + kRounding);
}

void CheckView(FuzzedDataProvider& input) {
    const auto number = [&input] { return input.ConsumeIntegral<std::int32_t>(); };
    const ViewPoint recorded{number(), number()};
    const ViewSize reference{number(), number()};
    const ViewSize client{number(), number()};
    const ViewPoint mapped = controls::MapRecordedPoint(recorded, reference, client);

    const bool isSame = reference.width == client.width + std::int64_t{1} &&
                        reference.height == client.height + std::int64_t{1};
    if (reference.width == 0 || reference.height == 0 || isSame) {
        Check(mapped == recorded, "a point stays in a view of the same or of unknown size");
        return;
    }
    Check(mapped.x >= 0 && mapped.x <= std::max(client.width, 0) && mapped.y >= 0 &&
              mapped.y <= std::max(client.height, 0),
          "a point ends in the view");
    if (reference.width < 0 || reference.height < 0 || client.width < 0 || client.height < 0)
        return;
    const ViewPoint other{number(), number()};
    const ViewPoint otherMapped = controls::MapRecordedPoint(other, reference, client);
    Check(recorded.x < other.x ? mapped.x <= otherMapped.x : mapped.x >= otherMapped.x,
          "points keep their order");
    Check(recorded.y < other.y ? mapped.y <= otherMapped.y : mapped.y >= otherMapped.y,
          "points keep their order");
    const long double scale =
        std::min((client.width + 1.0L) / reference.width, (client.height + 1.0L) / reference.height);
    Check(IsMapped(mapped.x, recorded.x, reference.width, scale, client.width) &&
              IsMapped(mapped.y, recorded.y, reference.height, scale, client.height),
          "a point is where exact arithmetic puts it");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    FuzzedDataProvider input(data, size);
    if (input.ConsumeBool())
        CheckDesktop(input);
    else
        CheckView(input);
    return 0;
}
