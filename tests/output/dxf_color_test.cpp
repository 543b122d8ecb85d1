#include "output/dxf/dxf_color.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <set>
#include <vector>

namespace quelmont {
namespace {

struct ColorsOfNumber {
    const char* number;
    std::vector<ColorValue> colors; ///< 0x00BBGGRR
};

// clang-format off
const std::vector<ColorsOfNumber> Table = {
    {"1", {0x0000E6, 0x0000FF, 0x1A1AFF, 0x3333FF}},
    {"2", {0x00E6E6, 0x00FFFF, 0x1AFFFF, 0x33FFFF}},
    {"3", {0x00E600, 0x00FF00, 0x1AFF1A, 0x33FF33}},
    {"4", {0xE6E600, 0xFFFF00, 0xFFFF1A, 0xFFFF33}},
    {"5", {0xE60000, 0xFF0000, 0xFF1A1A, 0xFF3333}},
    {"6", {0xE600E6, 0xFF00FF, 0xFF1AFF, 0xFF33FF}},
    {"7", {0x000000, 0x000001, 0x111111, 0x222222}},
    {"11", {0x4D4DFF, 0x6666FF, 0x8080FF}},
    {"12", {0x000099, 0x0000B3, 0x0000CC}},
    {"14", {0x000080}},
    {"16", {0x00004D, 0x000066}},
    {"21", {0x4DA6FF, 0x7399D9, 0x80A6E6, 0x9999FF}},
    {"23", {0x3C669F, 0x406CA6}},
    {"25", {0x264D73, 0x305480, 0x33598C, 0x395993}},
    {"30", {0x0073E6, 0x0080FF, 0x1A8CFF, 0x3399FF}},
    {"31", {0x66B3FF, 0x80BFFF, 0x93B3F2, 0x99CCFF, 0xA6C6FF, 0xB3B3FF, 0xB3CCFF}},
    {"32", {0x004D99, 0x0059B3, 0x0066CC}},
    {"33", {0x4573B3, 0x4D78BF, 0x668099}},
    {"34", {0x004080}},
    {"36", {0x00264D, 0x003366}},
    {"41", {0xB3D9FF, 0xBFD9FF, 0xCCE6FF}},
    {"43", {0x598CCC, 0x668C99}},
    {"51", {0x4DFFFF, 0x66FFFF, 0x80FFFF, 0x99FFFF, 0xB3FFFF}},
    {"52", {0x009999, 0x00B3B3, 0x00CCCC}},
    {"53", {0x669999}},
    {"54", {0x008080}},
    {"56", {0x004D4D, 0x006666}},
    {"61", {0xB3FFD9}},
    {"70", {0x00E673, 0x00FF80, 0x1AFF8C, 0x33FF99}},
    {"71", {0x66FFB3, 0x80FFBF, 0x99FFCC}},
    {"72", {0x00994D, 0x00B359, 0x00CC66}},
    {"73", {0x669980}},
    {"74", {0x008040}},
    {"76", {0x004D26, 0x006633}},
    {"81", {0x4DFFA6}},
    {"91", {0x4DFF4D, 0x66FF66, 0x80FF80, 0x99FF99, 0xB3FFB3}},
    {"92", {0x009900, 0x00B300, 0x00CC00}},
    {"93", {0x669966}},
    {"94", {0x006600, 0x008000}},
    {"96", {0x004D00}},
    {"101", {0xA6FF4D}},
    {"110", {0x73E600, 0x80FF00, 0x8CFF1A, 0x99FF33}},
    {"111", {0xB3FF66, 0xBFFF80, 0xCCFF99}},
    {"112", {0x4D9900, 0x59B300, 0x66CC00}},
    {"113", {0x809966}},
    {"114", {0x408000}},
    {"116", {0x264D00, 0x336600}},
    {"121", {0xD9FFB3}},
    {"122", {0x739966}},
    {"131", {0xFFFF4D, 0xFFFF66, 0xFFFF80, 0xFFFF99, 0xFFFFB3}},
    {"132", {0x999900, 0xB3B300, 0xCCCC00}},
    {"133", {0x999966}},
    {"134", {0x808000}},
    {"136", {0x4D4D00, 0x666600}},
    {"141", {0xFFD9B3}},
    {"150", {0xE67300, 0xFF8000, 0xFF8C1A, 0xFF9933}},
    {"151", {0xFFB366, 0xFFBF80, 0xFFCC99}},
    {"152", {0x994D00, 0xB35900, 0xCC6600}},
    {"153", {0x997366, 0x998066}},
    {"154", {0x804000}},
    {"156", {0x4D2600, 0x663300}},
    {"161", {0xFFA64D}},
    {"171", {0xFF4D4D, 0xFF6666, 0xFF8080, 0xFF9999, 0xFFB3B3}},
    {"172", {0x990000, 0xB30000, 0xCC0000}},
    {"174", {0x800000}},
    {"176", {0x4D0000, 0x660000}},
    {"181", {0xFF4DA6}},
    {"183", {0x996666}},
    {"190", {0xE60073, 0xFF0080, 0xFF1A8C, 0xFF3399}},
    {"191", {0xFF66B3, 0xFF80BF, 0xFF99CC, 0xFFB3D9}},
    {"192", {0x99004D, 0xB30059, 0xCC0066}},
    {"193", {0x996680}},
    {"194", {0x800040}},
    {"196", {0x4D0026, 0x660033}},
    {"211", {0xFF4DFF, 0xFF66FF, 0xFF80FF, 0xFF99FF, 0xFFB3FF}},
    {"212", {0x990099, 0xB300B3, 0xCC00CC}},
    {"213", {0x996699}},
    {"214", {0x800080}},
    {"216", {0x4D004D, 0x660066}},
    {"221", {0xD9B3FF}},
    {"223", {0x8C6699}},
    {"230", {0x7300E6, 0x8000FF, 0x8C1AFF, 0x9933FF}},
    {"231", {0xB366FF, 0xBF80FF, 0xCC99FF}},
    {"232", {0x4D0099, 0x5900B3, 0x6600CC}},
    {"233", {0x806699}},
    {"234", {0x400080}},
    {"236", {0x26004D, 0x330066}},
    {"241", {0xA64DFF}},
    {"243", {0x666699}},
    {"250", {0x333333, 0x444444, 0x555555}},
    {"251", {0x666666, 0x777777, 0x808080}},
    {"252", {0x888888, 0x999999}},
    {"253", {0xAAAAAA, 0xBBBBBB, 0xC0C0C0}},
    {"254", {0xCCCCCC, 0xDDDDDD, 0xEEEEEE}},
    {"255", {0xCCCCFF, 0xCCFFCC, 0xCCFFE6, 0xCCFFFF, 0xE6CCFF, 0xE6FFCC, 0xFFCCCC, 0xFFCCE6, 0xFFCCFF, 0xFFE6CC, 0xFFFFCC, 0xFFFFFF}},
};
// clang-format on

TEST(DxfColor, EachColourOfTheTableHasItsNumber) {
    std::size_t colors = 0;
    for (const ColorsOfNumber& row : Table) {
        for (const ColorValue color : row.colors) {
            EXPECT_EQ(DxfColor(color), row.number) << std::hex << color;
            EXPECT_EQ(DxfColor(color | 0x02000000U), row.number) << std::hex << color;
        }
        colors += row.colors.size();
    }
    EXPECT_EQ(colors, 242U);
}

TEST(DxfColor, ThereAre242ColoursAndNoneTwice) {
    std::set<ColorValue> colors;
    for (const IndexedColor& entry : IndexedColors) {
        EXPECT_TRUE(colors.insert(entry.color).second) << entry.color;
    }
    EXPECT_EQ(colors.size(), 242U);
}

TEST(DxfColor, MultiplesOfThePaletteFlagAreTakenOff) {
    EXPECT_EQ(DxfColor(33554432), "7"); // black
    EXPECT_EQ(DxfColor(33554432 + 255), "1");
    EXPECT_EQ(DxfColor(2 * 33554432 + 255), "1");
    EXPECT_EQ(DxfColor(63U * 33554432 + 255), "1"); // the largest that is not negative
    EXPECT_EQ(DxfColor(0x02123456), "");
}

TEST(DxfColor, OtherBitsAboveTheColourAreNot) {
    EXPECT_EQ(DxfColor(0x01000000), "");
    EXPECT_EQ(DxfColor(0x010000FF), "");
    EXPECT_EQ(DxfColor(0x030000FF), "");
    EXPECT_EQ(DxfColor(0x7FFFFFFF), "");
}

TEST(DxfColor, NegativeColourHasNoNumber) {
    EXPECT_EQ(DxfColor(0xFFFFFFFF), ""); // -1
    EXPECT_EQ(DxfColor(0x800000FF), ""); // -2147483393 is -33554177 below 63 of the flag
    EXPECT_EQ(DxfColor(0xFF000001), ""); // -16777215, whose low bits are those of a colour
}

TEST(DxfColor, ColourOutsideOfTheTableHasNoNumber) {
    EXPECT_EQ(DxfColor(0x123456), "");
    EXPECT_EQ(DxfColor(0x000002), "");
    EXPECT_EQ(DxfColor(0x0000FE), "");
    EXPECT_EQ(DxfColor(242), ""); // how many there are
}

/// 51 and 151 are tints of yellow and of the blue at 210 degrees; 254 is the light grey before white.
TEST(DxfAreaColor, PaleColoursAreTintsAndNotWhite) {
    EXPECT_EQ(DxfAreaColor(Rgb(0xFF, 0xFF, 0xCC)), "51");
    EXPECT_EQ(DxfAreaColor(Rgb(0xCC, 0xE6, 0xFF)), "151");
    EXPECT_EQ(DxfAreaColor(Rgb(0xFF, 0xCC, 0xCC)), "11");
    EXPECT_EQ(DxfAreaColor(Rgb(255, 255, 255)), "255");
}

TEST(DxfAreaColor, ColoursWithANumberKeepIt) {
    EXPECT_EQ(DxfAreaColor(Rgb(0xB3, 0xD9, 0xFF)), "141");
    EXPECT_EQ(DxfAreaColor(Rgb(0, 0, 255)), "5");
    EXPECT_EQ(DxfAreaColor(Rgb(0, 0, 255) | 0x02000000U), "5") << "with the flag of the palette";
}

TEST(DxfAreaColor, EveryOtherColourHasTheNumberOfItsHue) {
    EXPECT_EQ(DxfAreaColor(Rgb(250, 3, 2)), "10");
    EXPECT_EQ(DxfAreaColor(Rgb(3, 200, 2)), "92") << "green at 120 degrees, four fifths bright";
    EXPECT_EQ(DxfAreaColor(Rgb(255, 2, 60)), "240") << "hues end beside red";
    EXPECT_EQ(DxfAreaColor(Rgb(200, 200, 199)), "254");
    EXPECT_EQ(DxfAreaColor(Rgb(3, 2, 1)), "250");
}

} // namespace
} // namespace quelmont
