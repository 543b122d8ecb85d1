#include "core/standard_colors.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

TEST(StandardColors, HaveRedInTheLowestByte) {
    EXPECT_EQ(StandardColors[12], 0x0000FFU) << "light red";
    EXPECT_EQ(StandardColors[9], 0xFF0000U) << "light blue";
    EXPECT_EQ(Rgb(1, 2, 3), 0x030201U);
}

TEST(StandardColors, SolidColourKeepsItsBits) {
    EXPECT_EQ(SolidColor(0x123456), 0x02123456U);
    EXPECT_EQ(SolidColor(SolidColor(0x123456)), 0x02123456U);
    EXPECT_EQ(ColorBits(SolidColor(0x123456)), 0x123456U);
}

} // namespace
} // namespace quelmont
