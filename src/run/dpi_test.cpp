#include "run/dpi.h"

#include <gtest/gtest.h>

namespace multirename {
namespace {

TEST(Dpi, At96NothingChanges)
{
    for (int length = 0; length < 2000; ++length) {
        EXPECT_EQ(scaled(length, 96), length);
        EXPECT_EQ(unscaled(length, 96), length);
    }
}

TEST(Dpi, LengthsAreRoundedToTheNearestPixel)
{
    EXPECT_EQ(scaled(6, 144), 9);
    EXPECT_EQ(scaled(1, 144), 2);
    EXPECT_EQ(scaled(3, 120), 4);
    EXPECT_EQ(scaled(1, 120), 1);
    EXPECT_EQ(scaled(800, 144), 1200);
}

TEST(Dpi, PixelsAreRoundedToTheNearestLength)
{
    EXPECT_EQ(unscaled(1200, 144), 800);
    EXPECT_EQ(unscaled(1, 144), 1);
    EXPECT_EQ(unscaled(4, 120), 3);
    EXPECT_EQ(unscaled(0, 144), 0);
}

TEST(Dpi, LengthsComeBackFromFinerScreens)
{
    for (const int dpi : {96, 120, 144, 168, 192, 240, 288}) {
        for (int length = 0; length < 2000; ++length)
            EXPECT_EQ(unscaled(scaled(length, dpi), dpi), length);
    }
}

} // namespace
} // namespace multirename
