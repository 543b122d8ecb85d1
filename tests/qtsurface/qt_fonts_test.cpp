#include "qtsurface/qt_fonts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

namespace quelmont {
namespace {

using testing::Contains;
using testing::Not;

SurfaceFont Arial(int height) { return {.height = -height, .faceName = "Arial"}; }

TEST(QtFonts, CellIsAscentAndDescent) {
    QtFonts fonts;
    for (const int height : {1, 8, 13, 96, 533}) {
        const FontMetrics metrics = fonts.Metrics(Arial(height)).value();
        EXPECT_EQ(metrics.height, metrics.ascent + metrics.descent);
        // Faces with Latin letters ascend by four fifths to an em and descend by a fifth to a third.
        EXPECT_NEAR(metrics.ascent, 0.9 * height, 0.1 * height + 0.5) << height;
        EXPECT_NEAR(metrics.descent, 0.25 * height, 0.08 * height + 0.5) << height;
        EXPECT_NEAR(metrics.averageWidth, 0.5 * height, 0.12 * height + 0.5) << height;
    }
}

TEST(QtFonts, MeasuresGrowWithTheHeight) {
    QtFonts fonts;
    const FontMetrics one = fonts.Metrics(Arial(100)).value();
    const FontMetrics ten = fonts.Metrics(Arial(1000)).value();
    EXPECT_NEAR(ten.ascent, 10 * one.ascent, 5);
    EXPECT_NEAR(ten.descent, 10 * one.descent, 5);
    EXPECT_NEAR(ten.averageWidth, 10 * one.averageWidth, 5);
}

TEST(QtFonts, HeightAboveZeroIsThatOfTheCell) {
    QtFonts fonts;
    EXPECT_NEAR(fonts.Metrics({.height = 100, .faceName = "Arial"}).value().height, 100, 1);
}

TEST(QtFonts, AnglesCountForNothing) {
    QtFonts fonts;
    SurfaceFont turned = Arial(40);
    turned.escapement = turned.orientation = 450;
    EXPECT_EQ(fonts.Extent(turned, "Nuuk").value().width, fonts.Extent(Arial(40), "Nuuk").value().width);
}

TEST(QtFonts, TextIsAsWideAsItsPartsBlanksIncluded) {
    QtFonts fonts;
    const auto width = [&](std::string_view text) { return fonts.Extent(Arial(1000), text).value().width; };
    EXPECT_EQ(width(""), 0);
    EXPECT_NEAR(width("nnnn"), 4 * width("n"), 4);
    EXPECT_NEAR(width("n   "), width("n") + 3 * width(" "), 4);
    EXPECT_NEAR(width("   n"), width("n   "), 1);
    EXPECT_GT(width(" "), 200);
    EXPECT_EQ(width("e\u0301"), width("e"));
    EXPECT_EQ(width("a\nb"), width("a b"));
    EXPECT_EQ(fonts.Extent(Arial(40), "a").value().height, fonts.Metrics(Arial(40)).value().height);
}

TEST(QtFonts, WhatCannotBeMeasuredHasNoMeasures) {
    QtFonts fonts;
    EXPECT_FALSE(fonts.Metrics(Arial(32768)));
    EXPECT_TRUE(fonts.Metrics(Arial(32767)));
    EXPECT_TRUE(fonts.Extent(Arial(13), std::string(32767, 'W')));
    EXPECT_FALSE(fonts.Extent(Arial(13), std::string(32768, 'W')));
}

TEST(QtFonts, UnknownFamilyIsStoodInFor) {
    QtFonts fonts;
    EXPECT_GT(fonts.Metrics({.height = -20, .faceName = "No Such Font"}).value().ascent, 10);
}

TEST(QtFonts, FamiliesAreSortedOnceEach) {
    QtFonts fonts;
    std::vector<std::string> families = fonts.Families();
    EXPECT_THAT(families, Contains("DejaVu Sans"));
    EXPECT_THAT(families, Not(Contains("Sans Serif"))) << "a wish, and no family";
    EXPECT_THAT(families, Not(Contains(testing::HasSubstr("["))));
    std::sort(families.begin(), families.end());
    EXPECT_EQ(std::adjacent_find(families.begin(), families.end()), families.end());
}

TEST(QtFonts, FamiliesWithoutLatinLettersAreLast) {
    QtFonts fonts;
    const std::vector<std::string> families = fonts.Families();
    const auto symbols = std::find(families.begin(), families.end(), "OpenSymbol");
    if (symbols == families.end()) {
        GTEST_SKIP() << "every font here has Latin letters";
    }
    EXPECT_GT(symbols, std::find(families.begin(), families.end(), "Z003"));
    EXPECT_GT(symbols, std::find(families.begin(), families.end(), "DejaVu Sans"));
}

} // namespace
} // namespace quelmont
