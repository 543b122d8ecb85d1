#include "qtsurface/picture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>

namespace quelmont {
namespace {

using testing::ElementsAre;
using Pixels = std::set<std::pair<int, int>>;

Pixels Drawn(int width, int height, int pen, SurfacePoint from, SurfacePoint to) {
    Sheet sheet(width, height, pen);
    sheet.Line(from, to);
    return sheet.RedPixels();
}

TEST(RoundPen, IsAsWideAsItSays) {
    for (int pen = 2; pen <= 600; pen = pen < 20 ? pen + 1 : pen * 2 - 7) {
        const int size = 2 * pen + 40;
        const Pixels flat = Drawn(size, size, pen, {pen, size / 2}, {pen + 30, size / 2});
        const Pixels steep = Drawn(size, size, pen, {size / 2, pen}, {size / 2, pen + 30});
        EXPECT_EQ(std::count_if(flat.begin(), flat.end(), [&](auto p) { return p.first == pen + 15; }), pen);
        EXPECT_EQ(std::count_if(steep.begin(), steep.end(), [&](auto p) { return p.second == pen + 15; }),
                  pen);
    }
}

TEST(RoundPen, CutsADiagonalByTheRootOfTwo) {
    // Centres up to 5 pixels off the line x = y are up to 5 sqrt(2) = 7.07 from it along a row.
    const Pixels line = Drawn(100, 100, 10, {20, 20}, {80, 80});
    EXPECT_EQ(std::count_if(line.begin(), line.end(), [](auto p) { return p.second == 50; }), 15);
}

TEST(RoundPen, RoundsItsEnds) {
    Sheet sheet(10, 7, 5);
    sheet.Line({3, 3}, {6, 3});
    // Five rows of a disc: the corners' centres are sqrt(8) = 2.8 away, the pixels beside them 2.2.
    EXPECT_THAT(sheet.Rows(), ElementsAre("..........", "..######..", ".########.", ".########.",
                                          ".########.", "..######..", ".........."));
}

TEST(RoundPen, OfTwoPixelsLeansToTheUpperLeft) {
    Sheet sheet(6, 4, 2);
    sheet.Line({2, 2}, {4, 2});
    EXPECT_THAT(sheet.Rows(), ElementsAre("......", ".####.", ".####.", "......"));
}

TEST(RoundPen, OfLengthZeroDrawsNothing) { EXPECT_TRUE(Drawn(10, 10, 5, {5, 5}, {5, 5}).empty()); }

TEST(RoundPen, HoldsTheThinLine) {
    for (int pen = 2; pen <= 7; ++pen) {
        for (int x = 0; x <= 24; ++x) {
            for (int y = 0; y <= 24; ++y) {
                const Pixels thin = Drawn(34, 34, 1, {17, 17}, {x + 5, y + 5});
                const Pixels wide = Drawn(34, 34, pen, {17, 17}, {x + 5, y + 5});
                ASSERT_TRUE(std::includes(wide.begin(), wide.end(), thin.begin(), thin.end()))
                    << pen << ": " << x << ", " << y;
            }
        }
    }
}

double DistanceFromSegment(double x, double y, double ax, double ay, double bx, double by) {
    const double length2 = (bx - ax) * (bx - ax) + (by - ay) * (by - ay);
    const double along = std::clamp(((x - ax) * (bx - ax) + (y - ay) * (by - ay)) / length2, 0.0, 1.0);
    return std::hypot(x - (ax + along * (bx - ax)), y - (ay + along * (by - ay)));
}

TEST(RoundPen, PaintsWhatLiesWithinHalfItsWidth) {
    constexpr int Size = 60;
    std::mt19937 random(3);
    const auto coordinate = [&] { return static_cast<int>(random() % 40) + 10; };
    for (int i = 0; i < 300; ++i) {
        const int pen = static_cast<int>(random() % 18) + 3;
        const SurfacePoint from{coordinate(), coordinate()};
        const SurfacePoint to{coordinate(), coordinate()};
        if (from == to) {
            continue;
        }
        const double lean = pen % 2 == 0 ? -0.5 : 0.0;
        const Pixels pixels = Drawn(Size, Size, pen, from, to);
        for (int y = 0; y < Size; ++y) {
            for (int x = 0; x < Size; ++x) {
                const double beyond =
                    DistanceFromSegment(x, y, from.x + lean, from.y + lean, to.x + lean, to.y + lean) -
                    pen / 2.0;
                // Rounding decides about a centre on the very edge.
                if (std::fabs(beyond) > 1e-9) {
                    ASSERT_EQ(pixels.contains({x, y}), beyond < 0.0)
                        << pen << ": " << x << ", " << y << " of " << from.x << ", " << from.y << " to "
                        << to.x << ", " << to.y;
                }
            }
        }
    }
}

TEST(RoundPen, DrawsALineAndItsReverseAlike) {
    std::mt19937 random(5);
    const auto coordinate = [&] { return static_cast<int>(random() % 30) + 5; };
    for (int i = 0; i < 500; ++i) {
        const int pen = static_cast<int>(random() % 12) + 2;
        const SurfacePoint from{coordinate(), coordinate()};
        const SurfacePoint to{coordinate(), coordinate()};
        ASSERT_EQ(Drawn(40, 40, pen, from, to), Drawn(40, 40, pen, to, from));
    }
}

TEST(RoundPen, CutAtTheEdgesShowsTheSamePixels) {
    constexpr int Margin = 60;
    constexpr int Width = 23;
    constexpr int Height = 19;
    std::mt19937 random(11);
    const auto coordinate = [&](int size) {
        return static_cast<int>(random() % static_cast<unsigned>(size + Margin)) - Margin / 2;
    };
    for (int i = 0; i < 600; ++i) {
        const int pen = static_cast<int>(random() % 25) + 2;
        const SurfacePoint from{coordinate(Width), coordinate(Height)};
        const SurfacePoint to{coordinate(Width), coordinate(Height)};
        Pixels inside;
        for (const auto& [x, y] : Drawn(Width + 2 * Margin, Height + 2 * Margin, pen,
                                        {from.x + Margin, from.y + Margin}, {to.x + Margin, to.y + Margin})) {
            if (x >= Margin && x < Margin + Width && y >= Margin && y < Margin + Height) {
                inside.emplace(x - Margin, y - Margin);
            }
        }
        ASSERT_EQ(Drawn(Width, Height, pen, from, to), inside);
    }
}

TEST(RoundPen, MayReachFromOneEndOfTheNumbersToTheOther) {
    constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    const auto row = [](int y) {
        Pixels pixels;
        for (int x = 0; x < 20; ++x) {
            pixels.emplace(x, y);
        }
        return pixels;
    };
    Pixels rows = row(9);
    rows.merge(row(10));
    rows.merge(row(11));
    EXPECT_EQ(Drawn(20, 20, 3, {Least, 10}, {Most, 10}), rows);
    EXPECT_EQ(Drawn(20, 20, 3, {Most, 10}, {Least, 10}), rows);
    EXPECT_EQ(Drawn(20, 20, 3, {Least, Least}, {Most, Most}).size(), 20U * 5U - 6U);
    EXPECT_TRUE(Drawn(20, 20, 600, {Least, 400}, {Most, 400}).empty());
}

} // namespace
} // namespace quelmont
