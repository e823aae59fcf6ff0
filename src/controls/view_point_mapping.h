// Where a mouse action that was recorded in a view of one size belongs in a view of another size.
#pragma once

namespace controls {

// In client coordinates, pixels.
struct ViewPoint {
    int x = 0;
    int y = 0;
    bool operator==(const ViewPoint&) const = default;
};

// In pixels.
struct ViewSize {
    int width = 0;
    int height = 0;
    bool operator==(const ViewSize&) const = default;
};

// The recorded picture is scaled evenly and centred in the present view. `client` is the extent of the
// client rectangle (right - left, bottom - top); a result can lie on it, one pixel beyond the last column
// or row. A reference size with a 0 in it, or one that equals the present size, leaves the point as it is.
ViewPoint MapRecordedPoint(ViewPoint recorded, ViewSize reference, ViewSize client) noexcept;

} // namespace controls
