#include "map_fixture.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace quelmont {
namespace {

using testing::IsEmpty;

class CircleClipping : public MapTest {
protected:
    /// Distance of a plotted point from the centre of the map, seconds, by the haversine.
    static double Distance(const PlottedPoint& point) {
        constexpr double radian = M_PI / 180.0;
        const double p = std::sin((point.lat - Design.LatCentral) * radian / 2.0);
        const double q = std::sin((point.lon - Design.LonCentral) * radian / 2.0);
        const double h = p * p + std::cos(point.lat * radian) * std::cos(Design.LatCentral * radian) * q * q;
        return 2.0 * std::asin(std::sqrt(std::min(1.0, h))) / radian * SecPerDegree;
    }
    void ExpectPoint(std::size_t index, bool move, double lat, double lon) {
        ASSERT_LT(index, recorder.points.size());
        EXPECT_EQ(recorder.points[index].move, move) << "point " << index;
        EXPECT_NEAR(LatSeconds(recorder.points[index]), lat * SecPerDegree, 1.01) << "point " << index;
        EXPECT_NEAR(LonSeconds(recorder.points[index]), lon * SecPerDegree, 1.01) << "point " << index;
    }
};

// The centre has relative longitude 180.

TEST_F(CircleClipping, LineRunsToTheCircleAndStartsAnewWhereItReturns) {
    Circle(ProjStereographic, 0, 0, 60);
    Draw({Degrees(0, 50), Degrees(0, 70), Degrees(10, 70), Degrees(0, 50)});
    ASSERT_EQ(recorder.points.size(), 4U);
    ExpectPoint(0, true, 0, 230);
    ExpectPoint(1, false, 0, 240);
    EXPECT_TRUE(recorder.points[2].move);
    EXPECT_NEAR(Distance(recorder.points[2]), 60 * SecPerDegree, 1.0);
    ExpectPoint(3, false, 0, 230);
}

TEST_F(CircleClipping, LineAlongTheCentralMeridianIsCutAtTheRange) {
    Circle(ProjAzimuthalEquidistant, 40, -100, 30);
    Draw({Degrees(60, -100), Degrees(75, -100)});
    ASSERT_EQ(recorder.points.size(), 2U);
    ExpectPoint(1, false, 70, 180);
}

TEST_F(CircleClipping, LineThatEndsOnTheCircleIsDrawnToItsEnd) {
    Circle(ProjStereographic, 46, 0, 45); // 1 N lies on the circle
    Draw({Degrees(90, 0), Degrees(1, 0)});
    ASSERT_EQ(recorder.points.size(), 2U);
    ExpectPoint(0, true, 90, 180);
    ExpectPoint(1, false, 1, 180);
    recorder.points.clear();
    Draw({Degrees(1, 0), Degrees(90, 0)});
    ASSERT_EQ(recorder.points.size(), 2U);
    ExpectPoint(0, true, 1, 180);
    ExpectPoint(1, false, 90, 180);
}

TEST_F(CircleClipping, HorizonOfAHemisphereIsReached) {
    Circle(ProjOrthographic, 0, 0, 90);
    Draw({Degrees(0, 80), Degrees(0, 100), Degrees(10, 100), Degrees(10, 80)});
    ASSERT_GE(recorder.points.size(), 3U);
    ExpectPoint(0, true, 0, 260);
    ExpectPoint(1, false, 0, 270);
    EXPECT_TRUE(recorder.points[2].move);
}

TEST_F(CircleClipping, FirstPointBeyondTheCircleDrawsNothing) {
    Circle(ProjStereographic, 0, 0, 60);
    Draw({Degrees(0, 70)});
    EXPECT_THAT(recorder.points, IsEmpty());
}

TEST_F(CircleClipping, LineThatBeginsBeyondTheCircleEntersAtIt) {
    Circle(ProjStereographic, 0, 0, 60);
    Draw({Degrees(0, 70), Degrees(0, 50)});
    ASSERT_EQ(recorder.points.size(), 2U);
    ExpectPoint(0, true, 0, 240);
    ExpectPoint(1, false, 0, 230);
}

TEST_F(CircleClipping, BothEndsBeyondTheCircleDrawNothing) {
    Circle(ProjStereographic, 0, 0, 60);
    Draw({Degrees(0, 70), Degrees(0, -70)});
    EXPECT_THAT(recorder.points, IsEmpty());
}

TEST_F(CircleClipping, PoleInsideTheCircleIsNoEdge) {
    Circle(ProjAzimuthalEqualArea, 90, 0, 30);
    Draw({Degrees(80, 10), Degrees(90, 10), Degrees(80, -170)});
    EXPECT_EQ(recorder.Strokes().size(), 2U);
}

TEST_F(CircleClipping, SeamOppositeTheCentreIsNoEdge) {
    Circle(ProjAzimuthalEquidistant, 80, 0, 60);
    // Over the pole's far side, where relative longitudes leap from 360 to 0.
    Draw({Degrees(60, 179), Degrees(60, -179), Degrees(60, 180), Degrees(60, -180)});
    ASSERT_EQ(recorder.points.size(), 4U);
    EXPECT_EQ(recorder.Strokes().size(), 3U);
}

TEST_F(CircleClipping, CutAcrossTheSeamMeetsTheCircle) {
    Circle(ProjAzimuthalEquidistant, 80, 0, 60); // down to 40 N on the far side
    for (const auto& [from, to] : {std::pair{Degrees(41, 179.7), Degrees(39.2, -179.8)},
                                   std::pair{Degrees(41, -179.7), Degrees(39.2, 179.8)}}) {
        recorder.points.clear();
        Draw({from, to});
        ASSERT_EQ(recorder.points.size(), 2U);
        EXPECT_NEAR(Distance(recorder.points[1]), 60 * SecPerDegree, 1.0);
        recorder.points.clear();
        Draw({to, from});
        ASSERT_EQ(recorder.points.size(), 2U);
        EXPECT_NEAR(Distance(recorder.points[0]), 60 * SecPerDegree, 1.0);
    }
}

TEST_F(CircleClipping, EachPointIsProjectedAsIfItHadNotBeenTested) {
    Circle(ProjAzimuthalEqualArea, 40, 0, 60);
    Draw({Degrees(30, 10), Degrees(31, 12)});
    ASSERT_EQ(recorder.points.size(), 2U);
    // Snyder 1987, eq. 24-2 and 22-4, 22-5 for 31 N, 12 E about 40 N, 0 E.
    const double radian = M_PI / 180.0;
    const double phi = 31 * radian;
    const double phi1 = 40 * radian;
    const double lam = 12 * radian;
    const double k = std::sqrt(
        2.0 / (1.0 + std::sin(phi1) * std::sin(phi) + std::cos(phi1) * std::cos(phi) * std::cos(lam)));
    EXPECT_NEAR(recorder.points[1].x, k * std::cos(phi) * std::sin(lam), 1e-12);
    EXPECT_NEAR(recorder.points[1].y,
                k * (std::cos(phi1) * std::sin(phi) - std::sin(phi1) * std::cos(phi) * std::cos(lam)), 1e-12);
    EXPECT_EQ(Design.ProjTestMode, TestNone);
}

TEST_F(CircleClipping, TestModeIsClearedAfterAnEntry) {
    Circle(ProjStereographic, 0, 0, 60);
    Draw({Degrees(0, 70), Degrees(0, 50)});
    EXPECT_EQ(Design.ProjTestMode, TestNone);
    // 50 degrees from the centre: 2 tan 25.
    ASSERT_EQ(recorder.points.size(), 2U);
    EXPECT_NEAR(recorder.points[1].x, 2.0 * std::tan(25.0 * M_PI / 180.0), 1e-12);
    EXPECT_NEAR(recorder.points[1].y, 0.0, 1e-12);
}

TEST_F(CircleClipping, LineThroughTheAntipodeBreaksThere) {
    Circle(ProjAzimuthalEqualArea, 40, 0, 180);
    Draw({Degrees(-39, 180), Degrees(-40, 180), Degrees(-41, 180)});
    for (const PlottedStroke& stroke : recorder.Strokes()) {
        EXPECT_LT(std::hypot(stroke.to.x - stroke.from.x, stroke.to.y - stroke.from.y), 0.1)
            << "the map is 4 wide";
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(CircleClipping, HorizonOfAPerspectiveBoundsTheMap) {
    Circle(ProjVerticalPerspective, 0, 0, 90);
    const double horizon = Design.RangeSec; // the range follows from the height
    ASSERT_LT(horizon, 90 * SecPerDegree);
    Draw({Degrees(0, 0), Degrees(0, 89)});
    ASSERT_GE(recorder.points.size(), 1U);
    for (const PlottedPoint& point : recorder.points) {
        EXPECT_LE(Distance(point), horizon + 1.0);
    }
}

TEST_F(CircleClipping, CutBehindTheHorizonDoesNotLeadOn) {
    // A cut at the horizon itself, rounded to the second, may lie behind it and is dropped then.
    Circle(ProjOrthographic, 37, 11, 90);
    int dropped = 0;
    for (int lat = -30; lat <= 40; ++lat) {
        recorder.points.clear();
        Draw({Degrees(lat, 60), Degrees(lat - 7, 160), Degrees(lat + 1, 60), Degrees(lat + 2, 60)});
        ASSERT_GE(recorder.points.size(), 3U);
        ASSERT_LE(recorder.points.size(), 5U);
        dropped += 5 - static_cast<int>(recorder.points.size());
        EXPECT_FALSE(recorder.points.back().move);
        // One move at the start and one where the line returns, at the cut or at its first point.
        EXPECT_EQ(recorder.Strokes().size(), recorder.points.size() - 2);
    }
    EXPECT_GT(dropped, 0) << "the case came up";
}

} // namespace
} // namespace quelmont
