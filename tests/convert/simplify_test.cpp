#include "convert/simplify.h"

#include "convert/segment_distance.h"
#include "convert_fixture.h"
#include "core/coordinates.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <random>
#include <stdexcept>
#include <utility>

namespace quelmont {

namespace {

MapLine Simplified(MapLine line, double arcSeconds) {
    Simplify(line, arcSeconds);
    return line;
}

TEST(Simplifying, DropsWhatLiesCloseAndKeepsWhatLiesOff) {
    // 9 seconds off the straight line, then 11.
    const MapLine line{{0, 0}, {1, 9.0 / 3600}, {2, 0}};
    EXPECT_EQ(Simplified(line, 10), (MapLine{{0, 0}, {2, 0}}));
    const MapLine other{{0, 0}, {1, 11.0 / 3600}, {2, 0}};
    EXPECT_EQ(Simplified(other, 10), other);
}

TEST(Simplifying, CountsLongitudesAsTheyMeasure) {
    // 18 seconds of longitude measure 9 at 60 degrees north.
    const MapLine north{{0, 60}, {18.0 / 3600, 60.5}, {0, 61}};
    EXPECT_EQ(Simplified(north, 10).size(), 2U);
    const MapLine equator{{0, 0}, {18.0 / 3600, 0.5}, {0, 1}};
    EXPECT_EQ(Simplified(equator, 10).size(), 3U);
}

TEST(Simplifying, MeasuresFromTheSegmentAndNotFromItsStraightLine) {
    // Turns back behind its end: on the straight line, but a degree off the segment.
    const MapLine line{{0, 0}, {3, 0}, {2, 0}};
    EXPECT_EQ(Simplified(line, 10), line);
}

TEST(Simplifying, KeepsTheFarthestPointOfARing) {
    const MapLine ring{{0, 0}, {1, 0}, {1, 1}, {0, 1}, {0, 0}};
    EXPECT_EQ(Simplified(ring, 10), ring);
    EXPECT_EQ(Simplified({{0, 0}, {0.001, 0}, {0, 0.001}, {0, 0}}, 10), (MapLine{{0, 0}, {0, 0}}));
}

TEST(Simplifying, MovesTheLineNoFurtherThanAllowed) {
    // A spiral of a thousand points; each dropped one must lie within 60 seconds of a kept segment.
    MapLine line;
    for (int i = 0; i < 1000; ++i) {
        const double turn = i * 0.02;
        line.push_back({turn * std::cos(turn), turn * std::sin(turn)});
    }
    const MapLine kept = Simplified(line, 60);
    EXPECT_LT(kept.size(), 500U);
    const double tolerance = 60.0 / 3600;
    for (const LonLat& point : line) {
        double nearest = 1e9;
        for (std::size_t i = 1; i < kept.size(); ++i) {
            const LonLat& a = kept[i - 1];
            const LonLat& b = kept[i];
            const double dx = b.Lon - a.Lon;
            const double dy = b.Lat - a.Lat;
            const double along = ((point.Lon - a.Lon) * dx + (point.Lat - a.Lat) * dy) / (dx * dx + dy * dy);
            const double share = std::min(1.0, std::max(0.0, along));
            nearest =
                std::min(nearest, std::hypot(point.Lon - a.Lon - share * dx, point.Lat - a.Lat - share * dy));
        }
        // On the plane of longitudes, where all distances are at most a few percent longer than measured.
        EXPECT_LE(nearest, tolerance * 1.1);
    }
}

/// The same by the definition: the farthest point divides a stretch, as long as it lies too far off.
MapLine SimplifiedByDefinition(const MapLine& line, double arcSeconds) {
    const double tolerance = arcSeconds / SecPerDegree;
    std::vector<bool> kept(line.size(), false);
    kept.front() = kept.back() = true;
    const std::function<void(std::size_t, std::size_t)> divide = [&](std::size_t first, std::size_t last) {
        double most = 0.0;
        std::size_t farthest = first;
        for (std::size_t i = first + 1; i < last; ++i) {
            const double distance = std::sqrt(SegmentDistance(line[first], line[last]).Square(line[i]));
            if (distance > most) {
                most = distance;
                farthest = i;
            }
        }
        if (most > tolerance) {
            kept[farthest] = true;
            divide(first, farthest);
            divide(farthest, last);
        }
    };
    divide(0, line.size() - 1);
    MapLine left;
    for (std::size_t i = 0; i < line.size(); ++i) {
        if (kept[i]) {
            left.push_back(line[i]);
        }
    }
    return left;
}

TEST(Simplifying, DividesLinesLikeCoastsAtTheirFarthestPoints) {
    std::mt19937 random(20); // a walk of many bays
    std::normal_distribution<double> step(0.0, 0.01);
    for (int coast = 0; coast < 20; ++coast) {
        MapLine line{{10, 50}};
        for (int i = 0; i < 5000; ++i) {
            line.push_back({line.back().Lon + step(random), line.back().Lat + step(random)});
        }
        for (const double tolerance : {1.0, 30.0, 600.0}) {
            EXPECT_EQ(Simplified(line, tolerance), SimplifiedByDefinition(line, tolerance)) << coast;
        }
    }
}

/// Ripples a third of a second high on a straight line of 10 degrees.
MapLine Ripples(int count) {
    MapLine line;
    for (int i = 0; i < count; ++i) {
        line.push_back({10.0 * i / count, 0.0001 * (i % 7)});
    }
    return line;
}

TEST(Simplifying, LooksAtRippledLinesNoMoreOftenThanTheirLengthAllows) {
    // 200000 points: twenty halvings with at most eight distances to a point, and a few more behind that.
    std::int64_t calls = 0;
    MapLine line = Ripples(200000);
    Simplify(line, 0.001, [&] { ++calls; });
    EXPECT_GT(calls, 100);
    EXPECT_LT(calls * 4096, 200000LL * 18 * 16);
    EXPECT_GT(line.size(), 50000U) << "each ripple is higher than allowed";
}

TEST(Simplifying, MovesARippledLineNoFurtherThanAllowed) {
    const MapLine line = Ripples(100000);
    for (const double tolerance : {0.001, 0.5, 1.5, 3.0}) {
        const MapLine left = Simplified(line, tolerance);
        EXPECT_EQ(left.front(), line.front());
        EXPECT_EQ(left.back(), line.back());
        std::size_t next = 1;
        double most = 0.0;
        for (const LonLat& point : line) {
            while (point.Lon > left[next].Lon) {
                ++next;
            }
            most = std::max(most, SegmentDistance(left[next - 1], left[next]).Square(point));
        }
        EXPECT_LE(std::sqrt(most) * SecPerDegree, tolerance + 1e-9);
    }
}

TEST(Simplifying, MayBeStoppedAndLeavesTheLineAsItWas) {
    MapLine line = Ripples(100000);
    EXPECT_THROW(Simplify(line, 0.001, [] { throw std::runtime_error("stopped"); }), std::runtime_error);
    EXPECT_EQ(line, Ripples(100000));
}

} // namespace
} // namespace quelmont
