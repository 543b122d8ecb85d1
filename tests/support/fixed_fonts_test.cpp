#include "support/fixed_fonts.h"

#include <gtest/gtest.h>

namespace quelmont {
namespace {

TEST(FixedFonts, MeasuresFollowFromTheHeight) {
    FixedFonts fonts;
    const SurfaceFont font{.height = -18, .faceName = "Arial"};
    const FontMetrics metrics = fonts.Metrics(font).value();
    EXPECT_EQ(metrics.ascent, 18);
    EXPECT_EQ(metrics.descent, 4);
    EXPECT_EQ(metrics.height, 22);
    EXPECT_EQ(metrics.averageWidth, 9);
    EXPECT_EQ(fonts.Metrics({.height = 25}).value().ascent, 20);
}

TEST(FixedFonts, TextIsAsWideAsItsCharacters) {
    FixedFonts fonts;
    const TextExtent extent = fonts.Extent({.height = -18}, "K\u00F8ge").value();
    EXPECT_EQ(extent.width, 36);
    EXPECT_EQ(extent.height, 22);
}

TEST(FixedFonts, FailWhenTheyShall) {
    FixedFonts fonts;
    fonts.metricsFail = true;
    EXPECT_FALSE(fonts.Metrics({.height = -18}));
    EXPECT_TRUE(fonts.Extent({.height = -18}, "a"));
    fonts.extentFails = true;
    EXPECT_FALSE(fonts.Extent({.height = -18}, "a"));
}

} // namespace
} // namespace quelmont
