#include "controls/view_point_mapping.h"

#include <algorithm>

namespace controls {

namespace {

int MapCoordinate(int recorded, int reference, double scale, int client) noexcept {
    const double extent = client + 1.0;
    const double mapped = (recorded - reference * 0.5) * scale + extent * 0.5 + 0.5;
    // Limited before the conversion, which has no result for values out of an int's range.
    return static_cast<int>(std::max(std::min(mapped, static_cast<double>(client)), 0.0));
}

} // namespace

ViewPoint MapRecordedPoint(ViewPoint recorded, ViewSize reference, ViewSize client) noexcept {
    if (reference.width == 0 || reference.height == 0) {
        return recorded;
    }
    // Deliberately one more than the extent, as sizes are counted everywhere.
    const double width = client.width + 1.0;
    const double height = client.height + 1.0;
    if (width == reference.width && height == reference.height) {
        return recorded;
    }
    const double scale = std::min(width / reference.width, height / reference.height);
    return {MapCoordinate(recorded.x, reference.width, scale, client.width),
            MapCoordinate(recorded.y, reference.height, scale, client.height)};
}

} // namespace controls
