#include "qtsurface/picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <cstdlib>
#include <limits>
#include <random>

namespace quelmont {
namespace {

using testing::ElementsAre;
using Pixels = std::set<std::pair<int, int>>;

constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();

TEST(ThinLine, LeavesOutItsEndPixel) {
    Sheet sheet(5, 3);
    sheet.Line({1, 1}, {4, 1});
    EXPECT_THAT(sheet.Rows(), ElementsAre(".....", ".###.", "....."));
}

TEST(ThinLine, TakesTheNearestPixelOfEachColumn) {
    Sheet sheet(7, 3);
    sheet.Line({0, 0}, {6, 2}); // heights 0, 1/3, 2/3, 1, 4/3, 5/3
    EXPECT_THAT(sheet.Rows(), ElementsAre("##.....", "..###..", ".....#."));
}

TEST(ThinLine, OfTwoEquallyNearPixelsTakesTheLower) {
    Sheet down(5, 3);
    down.Line({0, 0}, {4, 2}); // heights 0, 1/2, 1, 3/2
    EXPECT_THAT(down.Rows(), ElementsAre("#....", ".##..", "...#."));
    Sheet up(5, 3);
    up.Line({0, 2}, {4, 0}); // heights 2, 3/2, 1, 1/2
    EXPECT_THAT(up.Rows(), ElementsAre(".....", "..##.", "##..."));
}

TEST(ThinLine, OfTwoEquallyNearPixelsTakesTheRightOne) {
    Sheet sheet(3, 5);
    sheet.Line({0, 0}, {2, 4});
    EXPECT_THAT(sheet.Rows(), ElementsAre("#..", ".#.", ".#.", "..#", "..."));
}

/// floor(a / b) for b > 0.
int Floor(int a, int b) { return a >= 0 ? a / b : -((-a + b - 1) / b); }

/// The rule said once more, without a walk: in each column (row), the nearest to the line.
Pixels ByTheRule(SurfacePoint from, SurfacePoint to) {
    Pixels pixels;
    const int dx = to.x - from.x;
    const int dy = to.y - from.y;
    const int length = std::max(std::abs(dx), std::abs(dy));
    for (int k = 0; k < length; ++k) {
        // start + k d / length, rounded to the nearest, halves up.
        pixels.emplace(from.x + Floor(2 * k * dx + length, 2 * length),
                       from.y + Floor(2 * k * dy + length, 2 * length));
    }
    return pixels;
}

TEST(ThinLine, FollowsItsRuleInEveryDirection) {
    const SurfacePoint middle{12, 12};
    for (int x = 0; x < 25; ++x) {
        for (int y = 0; y < 25; ++y) {
            Sheet sheet(25, 25);
            sheet.Line(middle, {x, y});
            ASSERT_EQ(sheet.RedPixels(), ByTheRule(middle, {x, y})) << x << ", " << y;
        }
    }
}

TEST(ThinLine, RunsOverTheSamePixelsAsItsReverse) {
    const SurfacePoint middle{12, 12};
    for (int x = 0; x < 25; ++x) {
        for (int y = 0; y < 25; ++y) {
            Sheet there(25, 25);
            there.Line(middle, {x, y});
            Sheet back(25, 25);
            back.Line({x, y}, middle);
            Pixels both = there.RedPixels();
            Pixels reverse = back.RedPixels();
            both.emplace(x, y);
            reverse.emplace(middle.x, middle.y);
            ASSERT_EQ(both, reverse) << x << ", " << y;
        }
    }
}

TEST(ThinLine, OfLengthZeroDrawsNothingAndMoves) {
    Sheet sheet(4, 1);
    sheet.Line({1, 0}, {1, 0});
    EXPECT_THAT(sheet.Rows(), ElementsAre("...."));
    sheet.surface.LineTo(3, 0);
    EXPECT_THAT(sheet.Rows(), ElementsAre(".##."));
}

TEST(ThinLine, ContinuesFromItsEnd) {
    Sheet sheet(4, 3);
    sheet.Line({0, 0}, {2, 0});
    sheet.surface.LineTo(2, 2);
    EXPECT_THAT(sheet.Rows(), ElementsAre("###.", "..#.", "...."));
}

TEST(ThinLine, CutAtTheEdgesShowsTheSamePixels) {
    constexpr int Margin = 120;
    constexpr int Width = 31;
    constexpr int Height = 17;
    std::mt19937 random(7);
    const auto coordinate = [&](int size) {
        return static_cast<int>(random() % static_cast<unsigned>(size + 2 * Margin)) - Margin;
    };
    int visible = 0;
    for (int i = 0; i < 4000; ++i) {
        const SurfacePoint from{coordinate(Width), coordinate(Height)};
        const SurfacePoint to{coordinate(Width), coordinate(Height)};
        Pixels inside;
        for (const auto& [x, y] : ByTheRule(from, to)) {
            if (x >= 0 && x < Width && y >= 0 && y < Height) {
                inside.emplace(x, y);
            }
        }
        Sheet sheet(Width, Height);
        sheet.Line(from, to);
        ASSERT_EQ(sheet.RedPixels(), inside) << from.x << ", " << from.y << " to " << to.x << ", " << to.y;
        visible += inside.empty() ? 0 : 1;
    }
    EXPECT_GT(visible, 400);
}

TEST(ThinLine, MayReachFromOneEndOfTheNumbersToTheOther) {
    Sheet diagonal(4, 4);
    diagonal.Line({Least, Least}, {Most, Most});
    EXPECT_THAT(diagonal.Rows(), ElementsAre("#...", ".#..", "..#.", "...#"));
    Sheet back(4, 4);
    back.Line({Most, Most}, {Least, Least});
    EXPECT_EQ(back.Rows(), diagonal.Rows());
    // Just past its middle column 0 has risen by a little more than one half.
    Sheet flat(4, 3);
    flat.Line({Least, 0}, {Most, 1});
    EXPECT_THAT(flat.Rows(), ElementsAre("....", "####", "...."));
    Sheet steep(3, 4);
    steep.Line({2, Most}, {1, Least});
    EXPECT_THAT(steep.Rows(), ElementsAre("..#", "..#", "..#", "..#"));
    Sheet missing(4, 4);
    missing.Line({Least, 4}, {Most, 4});
    missing.Line({-1, Least}, {-1, Most});
    missing.Line({Least, 0}, {Most, Most});
    EXPECT_TRUE(missing.RedPixels().empty());
}

TEST(ThinLine, OutsideThePictureCostsNothingForItsLength) {
    Sheet sheet(10, 10);
    const auto start = std::chrono::steady_clock::now();
    for (int i = 0; i < 1000; ++i) {
        sheet.Line({Least, i}, {Most, -i});
        sheet.Line({Least + i, Least}, {Most, Most});
    }
    // Pixel by pixel these lines would take hours.
    EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(2));
}

TEST(ThinLine, NullPenMovesWithoutDrawing) {
    Sheet sheet(4, 2);
    const SurfaceHandle red = sheet.surface.SelectObject(sheet.surface.CreatePen(PenStyleNull, 1, Blue));
    sheet.Line({0, 0}, {2, 0});
    EXPECT_TRUE(sheet.surface.SelectObject(red) != 0);
    sheet.surface.LineTo(4, 0);
    EXPECT_THAT(sheet.Rows(), ElementsAre("..##", "...."));
}

TEST(ThinLine, PolylineJoinsItsPointsAndLeavesThePosition) {
    Sheet sheet(4, 3);
    sheet.surface.MoveToEx(0, 2);
    const std::vector<SurfacePoint> points{{0, 0}, {2, 0}, {2, 2}};
    EXPECT_TRUE(sheet.surface.Polyline(points));
    sheet.surface.LineTo(2, 2);
    EXPECT_THAT(sheet.Rows(), ElementsAre("###.", "..#.", "##.."));
    EXPECT_FALSE(sheet.surface.Polyline(std::span(points).first(1)));
}

} // namespace
} // namespace quelmont
