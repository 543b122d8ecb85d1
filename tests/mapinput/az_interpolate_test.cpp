#include "mapinput/az_interpolate.h"

#include "map_fixture.h"

#include <gtest/gtest.h>

#include <cmath>

namespace quelmont {
namespace {

/// Crossings of a segment, in relative degrees, with the circle of a map.
class AzInterpolateTest : public MapTest {
protected:
    struct Crossing {
        double lat, lon;
    };
    static Crossing Cut(double lat1, double lon1, double lat2, double lon2) {
        const TruePlace from = Degrees(lat1, lon1);
        const TruePlace to = Degrees(lat2, lon2);
        Design.PointLatSecPrev = from.lat;
        Design.PointLonSecPrev = from.lon;
        Design.PointLatSec = to.lat;
        Design.PointLonSec = to.lon;
        std::int32_t lat = -1;
        std::int32_t lon = -1;
        const bool leaves = CosDistance({lat2, lon2}) < CosDistance({lat1, lon1});
        AzInterpolate(lat, lon, leaves ? LineAtCircle::Leaves : LineAtCircle::Enters);
        return {lat / 3600.0, lon / 3600.0};
    }
    /// Cosine of the distance from the centre, by the cosine rule.
    static double CosDistance(const Crossing& at) {
        const double radian = M_PI / 180.0;
        return std::sin(at.lat * radian) * std::sin(Design.LatCentral * radian) +
               std::cos(at.lat * radian) * std::cos(Design.LatCentral * radian) *
                   std::cos((at.lon - Design.LonCentral) * radian);
    }
    /// Seconds from the circle.
    static double OffCircle(const Crossing& at) {
        return std::fabs(std::acos(CosDistance(at)) * 180.0 / M_PI * 3600.0 - Design.RangeSec);
    }
    static constexpr double Second = 1.0 / 3600.0;
};

TEST_F(AzInterpolateTest, AlongAParallelTheLatitudeStays) {
    Circle(ProjAzimuthalEqualArea, 0, 0, 60);
    const Crossing at = Cut(0, 230, 0, 250);
    EXPECT_EQ(at.lat, 0.0);
    EXPECT_NEAR(at.lon, 240.0, Second);
    // Off the equator: cos 60 = cos 30 cos dLon.
    const Crossing north = Cut(30, 250, 30, 220);
    EXPECT_EQ(north.lat, 30.0);
    EXPECT_NEAR(north.lon, 180.0 + std::acos(0.5 / std::cos(M_PI / 6.0)) * 180.0 / M_PI, Second);
}

TEST_F(AzInterpolateTest, AlongAMeridianTheLongitudeStays) {
    Circle(ProjAzimuthalEqualArea, 40, 0, 30);
    EXPECT_NEAR(Cut(60, 180, 80, 180).lat, 70.0, Second);
    EXPECT_NEAR(Cut(0, 180, 20, 180).lat, 10.0, Second);
    EXPECT_EQ(Cut(0, 180, 20, 180).lon, 180.0);
}

TEST_F(AzInterpolateTest, GeneralSegmentIsCutOnItsStraightLine) {
    Circle(ProjAzimuthalEqualArea, 40, 0, 30);
    const Crossing at = Cut(50, 190, 62, 235);
    EXPECT_LT(OffCircle(at), 0.75);
    EXPECT_GT(at.lat, 50.0);
    EXPECT_LT(at.lat, 62.0);
    EXPECT_NEAR(at.lon, 190.0 + (at.lat - 50.0) * 45.0 / 12.0, 2 * 45.0 / 12.0 * Second);
}

TEST_F(AzInterpolateTest, DirectionOfTheSegmentDoesNotMatter) {
    Circle(ProjAzimuthalEqualArea, 40, 0, 30);
    const Crossing out = Cut(50, 190, 62, 235);
    const Crossing in = Cut(62, 235, 50, 190);
    EXPECT_NEAR(out.lat, in.lat, Second);
    EXPECT_NEAR(out.lon, in.lon, Second);
}

TEST_F(AzInterpolateTest, EqualPointsGiveZero) {
    Circle(ProjAzimuthalEqualArea, 40, 0, 30);
    const Crossing at = Cut(50, 190, 50, 190);
    EXPECT_EQ(at.lat, 0.0);
    EXPECT_EQ(at.lon, 0.0);
}

TEST_F(AzInterpolateTest, RangeOf90DegreesIsAGreatCircle) {
    Circle(ProjOrthographic, 0, 0, 90);
    EXPECT_NEAR(Cut(0, 260, 0, 280).lon, 270.0, Second);
    EXPECT_NEAR(Cut(50, 260, 50, 280).lon, 270.0, Second);
    EXPECT_NEAR(Cut(10, 80, 20, 100).lat, 15.0, Second);
}

TEST_F(AzInterpolateTest, SegmentAlongAParallelRunsTheShortWayAcrossTheSeam) {
    Circle(ProjAzimuthalEquidistant, 0, 0, 179);
    // From 178.5 degrees east of the centre to 179.5 west of it: out at 179 east, relative 359.
    const Crossing east = Cut(0, 358.5, 0, 0.5);
    EXPECT_EQ(east.lat, 0.0);
    EXPECT_NEAR(std::remainder(east.lon - 359.0, 360.0), 0.0, Second);
    const Crossing west = Cut(0, 1.5, 0, 359.5);
    EXPECT_NEAR(std::remainder(west.lon - 1.0, 360.0), 0.0, Second);
}

TEST_F(AzInterpolateTest, EastwardSegmentAcrossTheSeamIsCutOnItsLine) {
    Circle(ProjAzimuthalEquidistant, 80, 0, 60);
    const Crossing at = Cut(41, 359.5, 39, 0.5);
    EXPECT_LT(OffCircle(at), 0.75);
    // The line through its end: one degree of longitude in two of latitude.
    EXPECT_NEAR(at.lon, 0.5 + (at.lat - 39.0) * -0.5, 2 * Second);
}

TEST_F(AzInterpolateTest, WestwardSegmentAcrossTheSeamTakesTheSameSlope) {
    // The rise is positive whatever the order of the longitudes: the line is mirrored at its end.
    Circle(ProjAzimuthalEquidistant, 80, 0, 60);
    const Crossing at = Cut(41, 0.5, 39, 359.5);
    EXPECT_LT(OffCircle(at), 0.75);
    EXPECT_NEAR(at.lon, 359.5 + (at.lat - 39.0) * -0.5, 2 * Second);
}

TEST_F(AzInterpolateTest, NewtonThatLandsElsewhereIsReplacedByBisection) {
    Circle(ProjAzimuthalEqualArea, 0, 0, 60);
    // The middle lies one degree from the centre, where f is almost flat: the first step is 28
    // radians long.
    EXPECT_NEAR(Cut(0, 121, 0, 241).lon, 240.0, Second);
    EXPECT_NEAR(Cut(-59, 180, 61, 180).lat, 60.0, Second);
    const Crossing at = Cut(-40, 140, 48, 228);
    EXPECT_LT(OffCircle(at), 0.75);
    EXPECT_GT(at.lat, 0.0);
}

TEST_F(AzInterpolateTest, SlopeOfZeroIsNoFailure) {
    Circle(ProjAzimuthalEqualArea, 0, 0, 60);
    // Symmetric about the centre but for a second: f is flat in the middle to the last digit.
    const Crossing at = Cut(0, 120, 0, 240.0 + Second);
    EXPECT_TRUE(std::fabs(at.lon - 240.0) <= 2 * Second || std::fabs(at.lon - 120.0) <= 2 * Second) << at.lon;
}

TEST_F(AzInterpolateTest, OuterPointOnTheCircleItselfIsTheCrossing) {
    // 1 N is 45 degrees from 46 N: f is 0 there, and in the middle too flat for Newton's method.
    Circle(ProjStereographic, 46, 0, 45);
    const Crossing out = Cut(90, 180, 1, 180);
    EXPECT_NEAR(out.lat, 1.0, Second);
    EXPECT_EQ(out.lon, 180.0);
    const Crossing in = Cut(1, 180, 90, 180);
    EXPECT_NEAR(in.lat, 1.0, Second);
    EXPECT_EQ(in.lon, 180.0);
}

TEST_F(AzInterpolateTest, EitherEndOnTheCircleIsTheOuterOneByTheWayOfTheLine) {
    // From circle to circle through the middle of the map: f is 0 at both ends.
    Circle(ProjAzimuthalEqualArea, 0, 0, 60);
    const TruePlace west = Degrees(0, 120);
    const TruePlace east = Degrees(0, 240);
    std::int32_t lat = 0;
    std::int32_t lon = 0;
    const auto cut = [&](TruePlace from, TruePlace to, LineAtCircle way) {
        Design.PointLatSecPrev = from.lat;
        Design.PointLonSecPrev = from.lon;
        Design.PointLatSec = to.lat;
        Design.PointLonSec = to.lon;
        AzInterpolate(lat, lon, way);
        return lon / 3600.0;
    };
    EXPECT_NEAR(cut(west, east, LineAtCircle::Leaves), 240.0, Second);
    EXPECT_NEAR(cut(east, west, LineAtCircle::Leaves), 120.0, Second);
    EXPECT_NEAR(cut(west, east, LineAtCircle::Enters), 120.0, Second);
    EXPECT_NEAR(cut(east, west, LineAtCircle::Enters), 240.0, Second);
}

TEST_F(AzInterpolateTest, EveryCrossingLiesOnTheCircleAndBetweenItsEnds) {
    for (const double centre : {-90.0, -35.0, 0.0, 52.0, 90.0}) {
        for (const double range : {12.0, 45.0, 90.0, 120.0, 170.0}) {
            Circle(range < 90.0 ? ProjStereographic : ProjAzimuthalEquidistant, centre, 20, range);
            int crossings = 0;
            for (int lat = -83; lat <= 80; lat += 8) {
                for (int lon = 3; lon < 340; lon += 11) {
                    const auto inside = [&](double a, double b) {
                        const double radian = M_PI / 180.0;
                        return std::sin(a * radian) * std::sin(centre * radian) +
                                   std::cos(a * radian) * std::cos(centre * radian) *
                                       std::cos((b - 180.0) * radian) >
                               std::cos(range * radian);
                    };
                    const double lat2 = lat + 7.0;
                    const double lon2 = lon + 9.0;
                    if (inside(lat, lon) == inside(lat2, lon2)) {
                        continue;
                    }
                    ++crossings;
                    const Crossing at = Cut(lat, lon, lat2, lon2);
                    EXPECT_LT(OffCircle(at), 1.0) << centre << ' ' << range << ' ' << lat << ' ' << lon;
                    EXPECT_GE(at.lat, lat - Second);
                    EXPECT_LE(at.lat, lat2 + Second);
                    EXPECT_GE(at.lon, lon - 2 * Second);
                    EXPECT_LE(at.lon, lon2 + 2 * Second);
                }
            }
            EXPECT_GT(crossings, 0) << centre << ' ' << range;
        }
    }
}

} // namespace
} // namespace quelmont
