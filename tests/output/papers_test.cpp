#include "output/print/papers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quelmont {
namespace {

TEST(Papers, HaveTheirStandardsSizes) {
    // ISO 216 in millimetres, the American ones in inches.
    EXPECT_DOUBLE_EQ(PaperOf("A4")->width * 25.4, 210.0);
    EXPECT_DOUBLE_EQ(PaperOf("A4")->height * 25.4, 297.0);
    EXPECT_DOUBLE_EQ(PaperOf("A0")->width * 25.4, 841.0);
    EXPECT_DOUBLE_EQ(PaperOf("A0")->height * 25.4, 1189.0);
    EXPECT_EQ(PaperOf("Letter")->height, 11.0);
    EXPECT_EQ(PaperOf("Legal")->height, 14.0);
    EXPECT_EQ(PaperOf("Tabloid")->width, 11.0);
    EXPECT_EQ(PaperOf("B4"), nullptr);
    EXPECT_NE(PaperOf(DefaultPaper), nullptr);
}

TEST(Papers, StandUpright) {
    for (const Paper& paper : Papers) {
        EXPECT_LT(paper.width, paper.height) << paper.name;
    }
}

TEST(Papers, OfAnISeriesHaveSidesInTheRatioOfASquaresDiagonal) {
    for (const Paper& paper : Papers) {
        if (paper.name.size() == 2) {
            EXPECT_NEAR(paper.height / paper.width, 1.41421356, 0.006) << paper.name;
        }
    }
}

TEST(Papers, SidesAreFromAPointTo200Inches) {
    EXPECT_TRUE(CanBePageSide(1.0 / 72.0));
    EXPECT_TRUE(CanBePageSide(200.0));
    for (const double length : {0.0, -1.0, 0.0138, 200.001, std::nan(""), HUGE_VAL, -HUGE_VAL}) {
        EXPECT_FALSE(CanBePageSide(length)) << length;
    }
}

TEST(Papers, AreTakenAtTheFinestResolutionThatKeepsThemBelow32000Dots) {
    EXPECT_EQ(PageResolution(8.5, 11.0), 1200);
    EXPECT_EQ(PageResolution(11.0, 8.5), 1200);
    // A1, 841 mm or 33.11 inches: 966 dots an inch make 31 984.
    EXPECT_EQ(PageResolution(PaperOf("A1")->width, PaperOf("A1")->height), 966);
    // A0, 1189 mm or 46.81 inches: 683 dots an inch make 31 971.
    EXPECT_EQ(PageResolution(PaperOf("A0")->width, PaperOf("A0")->height), 683);
    EXPECT_EQ(PageResolution(200.0, 200.0), 159);
    EXPECT_EQ(PageResolution(1e9, 1.0), 1);
}

} // namespace
} // namespace quelmont
