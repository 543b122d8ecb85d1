#include "map_fixture.h"

#include "projection/utm.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace quelmont {
namespace {

using testing::IsEmpty;

/// Clipping at northings and eastings, in the zone about 9 W.
class MetresClipping : public MapTest {
protected:
    MetresClipping() { Zone(6'200'000, 5'600'000, 300'000, 800'000); }

    struct Metres {
        double north, east;
    };
    /// Where a place lies, to the metre, as it is drawn.
    static Metres MetresOf(TruePlace place) {
        Design.ProjLat = place.lat / 3600.0;
        Design.ProjLon = place.lon / 3600.0;
        UtmForward();
        return {std::round(Design.ProjLat), std::round(Design.ProjLon)};
    }
    void ExpectPoint(std::size_t index, bool move, double north, double east) {
        ASSERT_LT(index, recorder.points.size());
        EXPECT_EQ(recorder.points[index].move, move) << "point " << index;
        EXPECT_NEAR(recorder.points[index].lat, north, 1.01) << "point " << index;
        EXPECT_NEAR(recorder.points[index].lon, east, 1.01) << "point " << index;
    }
};

TEST_F(MetresClipping, PointsAreDrawnAtWholeMetres) {
    Draw({Degrees(53.1234, -9.2), Degrees(53.2, -8.9)});
    ASSERT_EQ(recorder.points.size(), 2U);
    for (const PlottedPoint& point : recorder.points) {
        EXPECT_EQ(point.lat, std::round(point.lat));
        EXPECT_EQ(point.lon, std::round(point.lon));
        EXPECT_EQ(point.x, point.lon);
        EXPECT_EQ(point.y, point.lat);
    }
    const Metres first = MetresOf(Degrees(53.1234, -9.2));
    EXPECT_NEAR(recorder.points[0].lat, first.north, 0.5);
    EXPECT_NEAR(recorder.points[0].lon, first.east, 0.5);
}

TEST_F(MetresClipping, CentralMeridianIsCutAtTheNorthingOfTheEdge) {
    // Its easting is the false one, 500000. 50 N lies south of the map, 52 N inside, 57 N north.
    Draw({Degrees(50, -9), Degrees(52, -9), Degrees(57, -9)});
    ASSERT_EQ(recorder.points.size(), 3U);
    ExpectPoint(0, true, 5'600'000, 500'000);
    EXPECT_FALSE(recorder.points[1].move);
    ExpectPoint(2, false, 6'200'000, 500'000);
    EXPECT_EQ(Design.LineStart, LineMoves);
}

TEST_F(MetresClipping, LineIsCutAtAnEasting) {
    const Metres in = MetresOf(Degrees(53, -6));
    const Metres out = MetresOf(Degrees(53.5, -3));
    ASSERT_LT(in.east, 800'000);
    ASSERT_GT(out.east, 800'000);
    Draw({Degrees(53, -6), Degrees(53.5, -3)});
    ASSERT_EQ(recorder.points.size(), 2U);
    const double t = (800'000 - in.east) / (out.east - in.east);
    ExpectPoint(1, false, in.north + t * (out.north - in.north), 800'000);
}

TEST_F(MetresClipping, LineEntersAtTheWesternEasting) {
    const Metres out = MetresOf(Degrees(53, -13));
    const Metres in = MetresOf(Degrees(53.5, -10));
    ASSERT_LT(out.east, 300'000);
    Draw({Degrees(53, -13), Degrees(53.5, -10)});
    ASSERT_EQ(recorder.points.size(), 2U);
    const double t = (300'000 - out.east) / (in.east - out.east);
    ExpectPoint(0, true, out.north + t * (in.north - out.north), 300'000);
    ExpectPoint(1, false, in.north, in.east);
}

TEST_F(MetresClipping, CornerIsCutAtTheNorthing) {
    // Beyond both edges, and over the northern one first.
    const Metres in = MetresOf(Degrees(55.5, -5));
    const Metres out = MetresOf(Degrees(58, -3));
    ASSERT_LT(in.north, 6'200'000);
    ASSERT_GT(out.east, 800'000);
    const double t = (6'200'000 - in.north) / (out.north - in.north);
    const double cut = in.east + t * (out.east - in.east);
    ASSERT_LT(cut, 800'000) << "the example is one";
    Draw({Degrees(55.5, -5), Degrees(58, -3)});
    ASSERT_EQ(recorder.points.size(), 2U);
    ExpectPoint(1, false, 6'200'000, cut);
}

TEST_F(MetresClipping, LongStepsInMetresAreNoLeaps) {
    // 20 degrees would be 72000, 340 degrees 1224000; this line is 1.7 million metres long.
    const Metres in = MetresOf(Degrees(53, -9));
    const Metres out = MetresOf(Degrees(53, 16));
    ASSERT_GT(out.east - in.east, 1'296'000);
    Draw({Degrees(53, -9), Degrees(53, 16)});
    ASSERT_EQ(recorder.points.size(), 2U);
    const double t = (800'000 - in.east) / (out.east - in.east);
    ExpectPoint(1, false, in.north + t * (out.north - in.north), 800'000);
}

TEST_F(MetresClipping, MapAsWideAsACircleHasSecondsHasNoSeam) {
    Zone(1'000'000, 0, 0, 1'296'000);
    const TruePlace inside = Degrees(0.5, -13.4);
    const TruePlace outside = Degrees(-0.5, -2.2);
    const Metres in = MetresOf(inside);
    const Metres out = MetresOf(outside);
    ASSERT_GT(out.east - in.east, 1'224'000);
    ASSERT_LE(out.east, 1'296'000);
    ASSERT_LT(out.north, 0);
    Draw({inside, outside});
    ASSERT_EQ(recorder.points.size(), 2U);
    const double t = in.north / (in.north - out.north);
    ExpectPoint(1, false, 0, in.east + t * (out.east - in.east));
}

TEST_F(MetresClipping, BothEndsOutsideDrawNothing) {
    Draw({Degrees(53, -20), Degrees(53, 2)});
    EXPECT_THAT(recorder.points, IsEmpty());
}

TEST_F(MetresClipping, DateLineIsNoEdgeOfAZone) {
    Design.UtmText[UtmTextCentralLon] = "177    00    00    W";
    Zone(6'200'000, 5'600'000, 0, 1'000'000);
    // Three degrees on either side of the meridian of 177 W; 179 E is a difference of 356.
    Draw({Degrees(53, 179), Degrees(53, -180), Degrees(53, -176)});
    EXPECT_EQ(recorder.points.size(), 3U);
    EXPECT_EQ(recorder.Strokes().size(), 2U);
    EXPECT_LT(recorder.points[0].lon, recorder.points[1].lon);
    EXPECT_LT(recorder.points[1].lon, recorder.points[2].lon);
}

} // namespace
} // namespace quelmont
