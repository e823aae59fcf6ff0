#include "input/desktop_mapping.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using input::ToAbsoluteInput;

TEST(DesktopMapping, TruncatesTheSinglePrecisionProduct) {
    EXPECT_EQ(ToAbsoluteInput(0, 1920), 0);
    EXPECT_EQ(ToAbsoluteInput(1, 1920), 34);
    EXPECT_EQ(ToAbsoluteInput(960, 1920), 32784);
    EXPECT_EQ(ToAbsoluteInput(1918, 1920), 65500);
    EXPECT_EQ(ToAbsoluteInput(907, 1280), 46474); // 46473 in double precision
    EXPECT_EQ(ToAbsoluteInput(-3, 1920), -102);   // toward zero, not down
}

TEST(DesktopMapping, TakesTheLastPixelOfEveryDesktopToTheEnd) {
    for (int extent = 2; extent <= 16384; ++extent) {
        ASSERT_EQ(ToAbsoluteInput(extent - 1, extent), 65535) << extent;
    }
}

TEST(DesktopMapping, StaysInRangeFarOutsideTheDesktop) {
    using Limits = std::numeric_limits<std::int32_t>;
    EXPECT_EQ(ToAbsoluteInput(std::int64_t{Limits::max()} * 2, 1920), Limits::max());
    EXPECT_EQ(ToAbsoluteInput(std::int64_t{Limits::min()} * 2, 1920), Limits::min());
    EXPECT_EQ(ToAbsoluteInput(5, 1), 0);
    EXPECT_EQ(ToAbsoluteInput(5, 0), 0);
}

} // namespace
