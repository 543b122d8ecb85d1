#include "qtsurface/picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace quelmont {
namespace {

using testing::ElementsAre;

class Shapes : public testing::Test {
protected:
    void FillBlue() { sheet.surface.SelectObject(sheet.surface.CreateSolidBrush(Blue)); }
    void NoPen() { sheet.surface.SelectObject(sheet.surface.CreatePen(PenStyleNull, 1, 0)); }

    Sheet sheet{9, 7};
};

TEST_F(Shapes, RectangleLeavesOutItsRightAndItsBottom) {
    FillBlue();
    EXPECT_TRUE(sheet.surface.Rectangle(1, 1, 6, 5));
    EXPECT_THAT(sheet.Rows(), ElementsAre(".........", ".#####...", ".#ooo#...", ".#ooo#...", ".#####...",
                                          ".........", "........."));
}

TEST_F(Shapes, RectangleWithoutPenIsFilledToItsBorder) {
    FillBlue();
    NoPen();
    EXPECT_TRUE(sheet.surface.Rectangle(6, 5, 1, 1));
    EXPECT_THAT(sheet.Rows(), ElementsAre(".........", ".ooooo...", ".ooooo...", ".ooooo...", ".ooooo...",
                                          ".........", "........."));
}

TEST_F(Shapes, RectangleMayReachFarBeyondThePicture) {
    FillBlue();
    NoPen();
    EXPECT_TRUE(sheet.surface.Rectangle(std::numeric_limits<std::int32_t>::min(), -320,
                                        std::numeric_limits<std::int32_t>::max(), 32320));
    EXPECT_THAT(sheet.Rows(), testing::Each("ooooooooo"));
}

TEST_F(Shapes, RectangleOfOnePixelIsADot) {
    EXPECT_TRUE(sheet.surface.Rectangle(2, 3, 3, 4));
    EXPECT_EQ(sheet.RedPixels(), (std::set<std::pair<int, int>>{{2, 3}}));
}

TEST_F(Shapes, RectangleWithoutHeightIsNothing) {
    EXPECT_TRUE(sheet.surface.Rectangle(2, 3, 6, 3));
    EXPECT_TRUE(sheet.RedPixels().empty());
}

TEST_F(Shapes, WideOutlineLiesAboutTheOutermostPixels) {
    sheet.surface.SelectObject(sheet.surface.CreatePen(PenStyleSolid, 3, Red));
    EXPECT_TRUE(sheet.surface.Rectangle(1, 1, 8, 6));
    EXPECT_THAT(sheet.Rows(), ElementsAre("#########", "#########", "#########", "###...###", "#########",
                                          "#########", "#########"));
}

TEST_F(Shapes, PolygonIsClosedAndFilledInside) {
    FillBlue();
    const std::vector<SurfacePoint> diamond{{1, 3}, {4, 6}, {7, 3}, {4, 0}};
    EXPECT_TRUE(sheet.surface.Polygon(diamond));
    EXPECT_THAT(sheet.Rows(), ElementsAre("....#....", "...#o#...", "..#ooo#..", ".#ooooo#.", "..#ooo#..",
                                          "...#o#...", "....#...."));
}

TEST_F(Shapes, PolygonWithoutBrushIsAnOutline) {
    const std::vector<SurfacePoint> triangle{{1, 5}, {4, 2}, {7, 5}};
    EXPECT_TRUE(sheet.surface.Polygon(triangle));
    EXPECT_THAT(sheet.Rows(), ElementsAre(".........", ".........", "....#....", "...#.#...", "..#...#..",
                                          ".#######.", "........."));
    EXPECT_FALSE(sheet.surface.Polygon(std::span(triangle).first(1)));
    EXPECT_FALSE(sheet.surface.Polygon({}));
}

TEST_F(Shapes, CrossingOutlinesAreFilledByTheMode) {
    FillBlue();
    NoPen();
    // A square of 6 pixels, then one of 2 within it, turning the same way.
    const std::vector<SurfacePoint> twice{{1, 0}, {7, 0}, {7, 6}, {1, 6}, {1, 0},
                                          {3, 2}, {5, 2}, {5, 4}, {3, 4}, {3, 2}};
    EXPECT_TRUE(sheet.surface.Polygon(twice));
    EXPECT_EQ(sheet.Rows()[1], ".oooooo..");
    EXPECT_EQ(sheet.Rows()[2], ".oo..oo..");
    EXPECT_EQ(sheet.surface.SetPolyFillMode(FillWinding), FillAlternate);
    EXPECT_TRUE(sheet.surface.Polygon(twice));
    EXPECT_EQ(sheet.Rows()[2], ".oooooo..");
    EXPECT_EQ(sheet.surface.SetPolyFillMode(FillAlternate), FillWinding);
    EXPECT_EQ(sheet.surface.SetPolyFillMode(3), 0);
    EXPECT_EQ(sheet.surface.SetPolyFillMode(FillWinding), FillAlternate);
}

TEST_F(Shapes, PolygonMayReachFarBeyondThePicture) {
    FillBlue();
    NoPen();
    constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    const std::vector<SurfacePoint> all{{Least, Least}, {Most, Least}, {Most, Most}, {Least, Most}};
    EXPECT_TRUE(sheet.surface.Polygon(all));
    EXPECT_THAT(sheet.Rows(), testing::Each("ooooooooo"));
}

TEST_F(Shapes, EllipseTouchesTheOutermostPixelsOfItsBox) {
    FillBlue();
    EXPECT_TRUE(sheet.surface.Ellipse(1, 0, 8, 7));
    // A circle of 7 pixels about (4, 3): the ring lies 2.5 to 3.5 from its centre. Distances: (3, 1)
    // 3.2, (3, 2) 3.6, (2, 2) 2.8, (2, 1) 2.2.
    EXPECT_THAT(sheet.Rows(), ElementsAre("...###...", "..#ooo#..", ".#ooooo#.", ".#ooooo#.", ".#ooooo#.",
                                          "..#ooo#..", "...###..."));
}

TEST_F(Shapes, EllipseWithoutBrushIsARing) {
    EXPECT_TRUE(sheet.surface.Ellipse(8, 7, 1, 0));
    EXPECT_EQ(sheet.Rows()[3], ".#.....#.");
    EXPECT_EQ(sheet.Rows()[0], "...###...");
}

TEST_F(Shapes, EllipseOfOnePixelIsADotAndOneWithoutWidthNothing) {
    EXPECT_TRUE(sheet.surface.Ellipse(2, 2, 3, 3));
    EXPECT_EQ(sheet.RedPixels(), (std::set<std::pair<int, int>>{{2, 2}}));
    EXPECT_TRUE(sheet.surface.Ellipse(5, 2, 5, 6));
    EXPECT_EQ(sheet.RedPixels().size(), 1U);
}

TEST_F(Shapes, FlatEllipseIsALine) {
    EXPECT_TRUE(sheet.surface.Ellipse(1, 3, 8, 4));
    EXPECT_EQ(sheet.Rows()[3], ".#######.");
    EXPECT_EQ(sheet.RedPixels().size(), 7U);
}

TEST(WideEllipse, OutlineIsAsWideAsThePen) {
    Sheet sheet(61, 61, 9);
    EXPECT_TRUE(sheet.surface.Ellipse(10, 10, 51, 51));
    // 20 pixels from the centre to the line, 4 more and 4 less than that in the row of the centre.
    const std::string row = sheet.Rows()[30];
    EXPECT_EQ(row, std::string(6, '.') + std::string(9, '#') + std::string(31, '.') + std::string(9, '#') +
                       std::string(6, '.'));
}

TEST_F(Shapes, SetPixelSetsOneAndMindsTheEdges) {
    sheet.surface.SetPixel(3, 2, 0x02000000U | Blue);
    sheet.surface.SetPixel(-1, 2, Blue);
    sheet.surface.SetPixel(9, 2, Blue);
    sheet.surface.SetPixel(3, 7, Blue);
    sheet.surface.SetPixel(std::numeric_limits<std::int32_t>::min(), std::numeric_limits<std::int32_t>::max(),
                           Blue);
    EXPECT_THAT(sheet.Rows(), ElementsAre(".........", ".........", "...o.....", ".........", ".........",
                                          ".........", "........."));
}

} // namespace
} // namespace quelmont
