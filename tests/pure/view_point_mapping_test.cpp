#include "controls/view_point_mapping.h"

#include <gtest/gtest.h>

#include <climits>

namespace {

using controls::MapRecordedPoint;
using controls::ViewPoint;
using controls::ViewSize;

TEST(ViewPointMapping, CentresTheEvenlyScaledPicture) {
    // One more than the extent counts: 1600 x 600, of which the width is the roomier one.
    EXPECT_EQ(MapRecordedPoint({0, 0}, {800, 600}, {1599, 599}), (ViewPoint{400, 0}));
    EXPECT_EQ(MapRecordedPoint({799, 599}, {800, 600}, {1599, 599}), (ViewPoint{1199, 599}));
    // Half the size: x = (101 - 400) * 0.5 + 200 + 0.5, cut.
    EXPECT_EQ(MapRecordedPoint({101, 300}, {800, 600}, {399, 299}), (ViewPoint{51, 150}));
    EXPECT_EQ(MapRecordedPoint({100, 300}, {800, 600}, {399, 299}), (ViewPoint{50, 150}));
}

TEST(ViewPointMapping, LeavesThePointWhereTheSizeIsTheSameOrUnknown) {
    EXPECT_EQ(MapRecordedPoint({-7, 9000}, {800, 600}, {799, 599}), (ViewPoint{-7, 9000}));
    EXPECT_EQ(MapRecordedPoint({-7, 9000}, {0, 600}, {99, 99}), (ViewPoint{-7, 9000}));
    EXPECT_EQ(MapRecordedPoint({-7, 9000}, {800, 0}, {99, 99}), (ViewPoint{-7, 9000}));
}

TEST(ViewPointMapping, EndsAtMostOnePixelBeyondTheView) {
    EXPECT_EQ(MapRecordedPoint({900, 700}, {800, 600}, {399, 299}), (ViewPoint{399, 299}));
    EXPECT_EQ(MapRecordedPoint({-50, -50}, {800, 600}, {399, 299}), (ViewPoint{0, 0}));
    EXPECT_EQ(MapRecordedPoint({INT_MAX, INT_MIN}, {1, 1}, {INT_MAX, INT_MAX}), (ViewPoint{INT_MAX, 0}));
    EXPECT_EQ(MapRecordedPoint({5, 5}, {10, 10}, {0, 0}), (ViewPoint{0, 0})); // no client area at all
}

} // namespace
