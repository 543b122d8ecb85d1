#include "output/area_trapezoids.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace quelmont {
namespace {

std::vector<Trapezoid> TrapezoidsOf(const PlaneRings& rings) {
    std::vector<Trapezoid> trapezoids;
    ForEachTrapezoid(rings, [&](const Trapezoid& trapezoid) { trapezoids.push_back(trapezoid); });
    return trapezoids;
}

double AreaOf(const std::vector<Trapezoid>& trapezoids) {
    double area = 0.0;
    for (const Trapezoid& t : trapezoids) {
        area += (t.high - t.low) * (t.lowRight - t.lowLeft + t.highRight - t.highLeft) / 2.0;
    }
    return area;
}

TEST(AreaTrapezoids, OfATriangleAreTwo) {
    const auto trapezoids = TrapezoidsOf({{{0, 0}, {10, 4}, {2, 8}}});
    ASSERT_EQ(trapezoids.size(), 2U);
    EXPECT_DOUBLE_EQ(AreaOf(trapezoids), 36.0); // (10 * 8 - 2 * 4) / 2
}

TEST(AreaTrapezoids, SidesThatGoOnAreNotCutByCornersElsewhere) {
    // Two squares side by side, the second of which has a notch.
    const auto trapezoids = TrapezoidsOf({{{0, 0}, {10, 0}, {10, 10}, {0, 10}},
                                          {{20, 0}, {30, 0}, {30, 4}, {25, 5}, {30, 6}, {30, 10}, {20, 10}}});
    EXPECT_EQ(trapezoids.size(), 1U + 4U);
    EXPECT_DOUBLE_EQ(AreaOf(trapezoids), 100.0 + 100.0 - 5.0);
}

TEST(AreaTrapezoids, SpareWhatIsInsideTwice) {
    EXPECT_DOUBLE_EQ(
        AreaOf(TrapezoidsOf({{{0, 0}, {10, 0}, {10, 10}, {0, 10}}, {{5, 5}, {15, 5}, {15, 15}, {5, 15}}})),
        100.0 + 100.0 - 2.0 * 25.0);
}

TEST(AreaTrapezoids, SidesMayCrossBetweenTheirEnds) {
    EXPECT_DOUBLE_EQ(AreaOf(TrapezoidsOf({{{0, 0}, {100, 100}, {0, 100}, {100, 0}}})), 5000.0);
}

TEST(AreaTrapezoids, OfNothingAreNone) {
    EXPECT_TRUE(TrapezoidsOf({}).empty());
    EXPECT_TRUE(TrapezoidsOf({{}, {{1, 1}}, {{0, 5}, {9, 5}, {4, 5}}}).empty());
}

/// By the rule of odd and even, along a ray to the left.
bool IsInside(const PlaneRings& rings, double x, double y) {
    bool inside = false;
    for (const PlaneRing& ring : rings) {
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const PlanePoint& a = ring[i];
            const PlanePoint& b = ring[(i + 1) % ring.size()];
            if ((a.y > y) != (b.y > y) && x > a.x + (b.x - a.x) * (y - a.y) / (b.y - a.y)) {
                inside = !inside;
            }
        }
    }
    return inside;
}

TEST(AreaTrapezoids, CoverEveryPlaceInsideOnceAndNoneOutside) {
    std::mt19937 random(12);
    const auto draw = [&](unsigned below) { return static_cast<double>(random() % below); };
    for (int round = 0; round < 200; ++round) {
        PlaneRings rings(1 + random() % 3);
        for (PlaneRing& ring : rings) {
            ring.resize(3 + random() % 12);
            for (PlanePoint& point : ring) {
                point = {draw(40), draw(40)};
            }
        }
        const std::vector<Trapezoid> trapezoids = TrapezoidsOf(rings);
        for (int i = 0; i < 300; ++i) {
            const double x = draw(400000) / 1e4;
            const double y = draw(400000) / 1e4;
            int covered = 0;
            for (const Trapezoid& t : trapezoids) {
                const double share = (y - t.low) / (t.high - t.low);
                covered += y >= t.low && y < t.high && x >= t.lowLeft + share * (t.highLeft - t.lowLeft) &&
                                   x < t.lowRight + share * (t.highRight - t.lowRight)
                               ? 1
                               : 0;
            }
            ASSERT_EQ(covered, IsInside(rings, x, y) ? 1 : 0)
                << "round " << round << " at " << x << ", " << y;
        }
    }
}

} // namespace
} // namespace quelmont
