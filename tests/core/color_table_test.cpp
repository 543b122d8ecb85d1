#include "core/color_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <map>

namespace quelmont {
namespace {

TEST(ColorTable, SecondRowIsAGreyScale) {
    for (unsigned column = 0; column < 16; ++column) {
        EXPECT_EQ(ColorOfCell(16 + column), Rgb(17 * column, 17 * column, 17 * column));
    }
}

TEST(ColorTable, RampsRiseFromDarkToLight) {
    // Every hue has its pure colour in the eighth column, and rises by 25 or 26 on the way to it.
    for (std::size_t row = 2; row < 14; ++row) {
        for (std::size_t column = 1; column < 16; ++column) {
            const auto sum = [](ColorValue color) {
                return (color & 0xFFU) + (color >> 8U & 0xFFU) + (color >> 16U & 0xFFU);
            };
            EXPECT_GT(sum(ColorOfCell(row * 16 + column)), sum(ColorOfCell(row * 16 + column - 1)))
                << row << ' ' << column;
        }
    }
    EXPECT_EQ(ColorOfCell(32 + 7), Rgb(255, 0, 0));
    EXPECT_EQ(ColorOfCell(48 + 7), Rgb(255, 128, 0));
    EXPECT_EQ(ColorOfCell(160 + 7), Rgb(0, 0, 255));
    EXPECT_EQ(ColorOfCell(208 + 15), Rgb(255, 204, 230));
    EXPECT_EQ(ColorOfCell(255), Rgb(0x99, 0x66, 0x80));
}

TEST(ColorTable, FifteenColoursStandTwice) {
    std::map<ColorValue, int> count;
    for (std::size_t cell = 0; cell < ColorCells; ++cell) {
        ++count[ColorOfCell(cell)];
    }
    EXPECT_EQ(std::count_if(count.begin(), count.end(), [](const auto& entry) { return entry.second == 2; }),
              15);
    EXPECT_EQ(count.size(), 241U);
}

TEST(ColorTable, ColourIsFoundInThePreferredCellElseInTheFirst) {
    const ColorValue red = Rgb(255, 0, 0);
    EXPECT_EQ(CellOfColor(red, 39), 39);
    EXPECT_EQ(CellOfColor(red, 12), 12);
    EXPECT_EQ(CellOfColor(red, 200), 12);
    EXPECT_EQ(CellOfColor(red, -1), 12);
    EXPECT_EQ(CellOfColor(red, 256), 12);
    EXPECT_EQ(CellOfColor(SolidColor(red), 39), 39) << "the flag is no part of the colour";
}

TEST(ColorTable, ColourThatIsNotThereHasNoCell) { EXPECT_EQ(CellOfColor(Rgb(1, 0, 0), 0), -1); }

TEST(ColorTable, NearestColourIsTheOneWithTheLeastSquares) {
    EXPECT_EQ(NearestTableColor(0x0000FF), 0x0000FFU);
    EXPECT_EQ(NearestTableColor(0x000008), 0x000000U);
    EXPECT_EQ(NearestTableColor(0xFEFEFE), 0xFFFFFFU);
    // 0x663300 (0x003366 written) is 16 + 1 + 18 off in each part: 0x123456 lies nowhere nearer.
    EXPECT_EQ(NearestTableColor(Rgb(0x12, 0x34, 0x56)), Rgb(0x00, 0x33, 0x66));
}

TEST(ColorTable, CellsAreReportedInWords) {
    EXPECT_EQ(CellInWords(4), "dark red: red 128, green 0, blue 0");
    EXPECT_EQ(CellInWords(15), "white: red 255, green 255, blue 255");
    EXPECT_EQ(CellInWords(17), "grey 2 of 16: red 17, green 17, blue 17");
    EXPECT_EQ(CellInWords(48), "orange 1 of 16: red 77, green 38, blue 0");
    EXPECT_EQ(CellInWords(255), "dull hue 16 of 16: red 153, green 102, blue 128");
}

TEST(ColorTable, ColorIsReportedByItsCellOrByItsParts) {
    EXPECT_EQ(ColorInWords(SolidColor(Rgb(0, 0, 128))), "dark blue: red 0, green 0, blue 128");
    EXPECT_EQ(ColorInWords(Rgb(0x4D, 0x26, 0)), "orange 1 of 16: red 77, green 38, blue 0");
    EXPECT_EQ(ColorInWords(Rgb(1, 2, 3)), "red 1, green 2, blue 3");
}

} // namespace
} // namespace quelmont
