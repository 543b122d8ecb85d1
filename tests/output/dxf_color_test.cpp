#include "output/dxf/dxf_color.h"

#include <gtest/gtest.h>

#include <set>

namespace quelmont {
namespace {

TEST(DxfColor, EachRowOfTheTableAtItsEnds) {
    EXPECT_EQ(DxfColor(0x0000E6), "1");
    EXPECT_EQ(DxfColor(0x0000FF), "1"); // red: 0x00BBGGRR
    EXPECT_EQ(DxfColor(0x00FFFF), "2");
    EXPECT_EQ(DxfColor(0x00FF00), "3");
    EXPECT_EQ(DxfColor(0xFF0000), "5");
    EXPECT_EQ(DxfColor(0x000000), "7");
    EXPECT_EQ(DxfColor(0x222222), "7");
    EXPECT_EQ(DxfColor(0x80A6E6), "21");
    EXPECT_EQ(DxfColor(0xA6C6FF), "31");
    EXPECT_EQ(DxfColor(0x739966), "122");
    EXPECT_EQ(DxfColor(0x800000), "174");
    EXPECT_EQ(DxfColor(0xC0C0C0), "253");
    EXPECT_EQ(DxfColor(0xCCCCFF), "255");
    EXPECT_EQ(DxfColor(0xFFFFFF), "255");
}

TEST(DxfColor, ThereAre242ColoursAndNoneTwice) {
    std::set<ColorValue> colors;
    for (const IndexedColor& entry : IndexedColors) {
        EXPECT_TRUE(colors.insert(entry.color).second) << entry.color;
    }
    EXPECT_EQ(colors.size(), 242U);
}

TEST(DxfColor, PaletteFlagIsTakenOff) {
    EXPECT_EQ(DxfColor(0x020000FF), "1");
    EXPECT_EQ(DxfColor(0x040000FF), "1"); // twice the flag is its multiple
}

TEST(DxfColor, OtherBitsAboveTheColourAreNot) { EXPECT_EQ(DxfColor(0x010000FF), ""); }

TEST(DxfColor, NegativeColourHasNoNumber) { EXPECT_EQ(DxfColor(0x800000FF), ""); }

TEST(DxfColor, ColourOutsideOfTheTableHasNoNumber) { EXPECT_EQ(DxfColor(0x123456), ""); }

} // namespace
} // namespace quelmont
