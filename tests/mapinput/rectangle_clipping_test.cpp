#include "map_fixture.h"

#include "core/run_time_error.h"
#include "output/output_state.h"
#include "support/run_time_errors.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace quelmont {
namespace {

using testing::IsEmpty;

/// Clipping at parallels and meridians. Lines are written in true degrees, what was plotted in
/// relative ones, both exact to the second.
class RectangleClipping : public MapTest {
protected:
    struct Plotted {
        bool move;
        double lat, lon;
    };
    static constexpr bool Move = true;
    static constexpr bool Go = false;

    void ExpectPlotted(const std::vector<Plotted>& expected) {
        ASSERT_EQ(recorder.points.size(), expected.size()) << testing::PrintToString(recorder.points);
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_EQ(recorder.points[i].move, expected[i].move) << "point " << i;
            EXPECT_NEAR(recorder.points[i].lat, expected[i].lat, 1e-9) << "point " << i;
            EXPECT_NEAR(recorder.points[i].lon, expected[i].lon, 1e-9) << "point " << i;
        }
        EXPECT_THAT(machine.boxes.asked, IsEmpty());
    }
    void ForgetPlotted() { recorder.points.clear(); }
    /// 30 to 60 N, 170 E to 170 W: relative longitudes 0 to 20.
    void AcrossTheDateLine() { Rectangle(ProjEquirectangular, 60.0, 30.0, 170.0, -170.0); }
};

TEST_F(RectangleClipping, LineAlongTheVeryEdgeIsInside) {
    AcrossTheDateLine();
    Draw({Degrees(60, 170), Degrees(60, -170), Degrees(30, -170), Degrees(30, 170)});
    ExpectPlotted({{Move, 60, 0}, {Go, 60, 20}, {Go, 30, 20}, {Go, 30, 0}});
}

TEST_F(RectangleClipping, OneSecondBeyondTheEdgeIsOutside) {
    AcrossTheDateLine();
    Draw({{216001, 630000}});  // 60:00:01 N
    Draw({{180000, 611999}});  // 169:59:59 E
    Draw({{180000, -611999}}); // 169:59:59 W
    Draw({{107999, 630000}});  // 29:59:59 N
    EXPECT_THAT(recorder.points, IsEmpty());
}

TEST_F(RectangleClipping, FirstPointOutsideDrawsNothing) {
    AcrossTheDateLine();
    Draw({Degrees(65, 175)});
    EXPECT_THAT(recorder.points, IsEmpty());
}

TEST_F(RectangleClipping, LineThatBeginsOutsideEntersAtTheEdge) {
    AcrossTheDateLine();
    Draw({Degrees(65, 175), Degrees(55, 175), Degrees(50, 175)});
    ExpectPlotted({{Move, 60, 5}, {Go, 55, 5}, {Go, 50, 5}});
}

TEST_F(RectangleClipping, SegmentWithBothEndsOutsideDrawsNothing) {
    AcrossTheDateLine();
    Draw({Degrees(65, 175), Degrees(20, 175)});
    EXPECT_THAT(recorder.points, IsEmpty()) << "even though it crosses the map";
}

TEST_F(RectangleClipping, LineLeavesOverTheNorthernEdge) {
    AcrossTheDateLine();
    Draw({Degrees(55, 172), Degrees(65, 176), Degrees(65, 178)});
    ExpectPlotted({{Move, 55, 2}, {Go, 60, 4}});
    EXPECT_EQ(Design.LineStart, LineMoves);
}

TEST_F(RectangleClipping, LineLeavesOverTheSouthernEdgeAndComesBack) {
    AcrossTheDateLine();
    Draw({Degrees(32, 172), Degrees(28, 174), Degrees(32, 176)});
    ExpectPlotted({{Move, 32, 2}, {Go, 30, 3}, {Move, 30, 5}, {Go, 32, 6}});
}

TEST_F(RectangleClipping, LineLeavesOverTheEasternEdge) {
    AcrossTheDateLine();
    // From relative 18 to 24, a third of the way.
    Draw({Degrees(50, -172), Degrees(56, -166)});
    ExpectPlotted({{Move, 50, 18}, {Go, 52, 20}});
}

TEST_F(RectangleClipping, LineEntersOverTheEasternEdge) {
    AcrossTheDateLine();
    Draw({Degrees(56, -166), Degrees(50, -172)});
    ExpectPlotted({{Move, 52, 20}, {Go, 50, 18}});
}

TEST_F(RectangleClipping, LineLeavesOverTheWesternEdge) {
    AcrossTheDateLine();
    // 168 E is relative 358, and -2 seen from the line.
    Draw({Degrees(46, 174), Degrees(40, 168)});
    ExpectPlotted({{Move, 46, 4}, {Go, 42, 0}});
}

TEST_F(RectangleClipping, LineEntersOverTheWesternEdge) {
    AcrossTheDateLine();
    Draw({Degrees(40, 168), Degrees(46, 174)});
    ExpectPlotted({{Move, 42, 0}, {Go, 46, 4}});
}

TEST_F(RectangleClipping, LineBeyondACornerIsCutAtTheParallel) {
    AcrossTheDateLine();
    // At relative 20 it has reached 62 N already; it passes 60 N after 10/24 of its way.
    Draw({Degrees(50, -172), Degrees(74, -168)});
    ExpectPlotted({{Move, 50, 18}, {Go, 60, 18.0 + 4.0 * 10.0 / 24.0}});
    ForgetPlotted();
    Draw({Degrees(16, -168), Degrees(40, -172)});
    ExpectPlotted({{Move, 30, 18.0 + 4.0 * 10.0 / 24.0}, {Go, 40, 18}});
}

TEST_F(RectangleClipping, CutIsRoundedToTheSecond) {
    AcrossTheDateLine();
    // Of 10 degrees of latitude 7 seconds lie inside; of one second of longitude 7/36000.
    Draw({{216000 - 7, 630000}, {216000 - 7 + 36000, 630001}});
    ExpectPlotted({{Move, 215993.0 / 3600.0, 5}, {Go, 60, 5}});
}

TEST_F(RectangleClipping, LeapBetween20And340DegreesIsCutAtTheLastCut) {
    AcrossTheDateLine();
    Draw({Degrees(55, 172), Degrees(65, 176)}); // cut at 60 N, relative 4
    ForgetPlotted();
    GoOn({Degrees(50, 175), Degrees(50, -90)}); // relative 5 to 100
    ExpectPlotted({{Move, 50, 5}, {Go, 60, 4}});
    ForgetPlotted();
    GoOn({Degrees(50, -90), Degrees(50, 175)});
    ExpectPlotted({{Move, 60, 4}, {Go, 50, 5}});
}

TEST_F(RectangleClipping, HoleBeginsBeyond20Degrees) {
    AcrossTheDateLine();
    // From relative 15 to 35, exactly 20 degrees, and to 35:00:01.
    Draw({Degrees(50, -175), Degrees(50, -155)});
    ExpectPlotted({{Move, 50, 15}, {Go, 50, 20}});
    ForgetPlotted();
    Draw({Degrees(55, 172), Degrees(65, 176)}); // leaves the cut 60 N, relative 4
    ForgetPlotted();
    GoOn({Degrees(50, -175), {180000, -557999}});
    ExpectPlotted({{Move, 50, 15}, {Go, 60, 4}});
}

TEST_F(RectangleClipping, HoleEndsAt340Degrees) {
    AcrossTheDateLine();
    Draw({Degrees(55, 172), Degrees(65, 176)}); // leaves the cut 60 N, relative 4
    ForgetPlotted();
    // From relative 10 to 350, ten degrees west of the edge; and to 349:59:59.
    Draw({Degrees(50, 180), Degrees(50, 160)});
    ExpectPlotted({{Move, 50, 10}, {Go, 50, 0}});
    ForgetPlotted();
    Draw({Degrees(55, 172), Degrees(65, 176)});
    ForgetPlotted();
    GoOn({Degrees(50, 180), {180000, 575999}});
    ExpectPlotted({{Move, 50, 10}, {Go, 60, 4}});
}

TEST_F(RectangleClipping, HoleOfANewFileIsCutAtTheEquatorOnTheWesternEdge) {
    Rectangle(ProjEquirectangular, 60.0, -60.0, 170.0, -170.0);
    Draw({Degrees(55, 172), Degrees(65, 176)}); // leaves the cut 60 N, relative 4
    ForgetPlotted();
    Draw({Degrees(50, 175), Degrees(50, -90)});
    ExpectPlotted({{Move, 50, 5}, {Go, 0, 0}});
}

TEST_F(RectangleClipping, SymbolsOfTheHoleStandAtTheCutOfTheFirstFileToo) {
    Rectangle(ProjEquirectangular, 60.0, -60.0, 170.0, -170.0);
    Design.CurrentSymbolType = SymbolDot;
    surface.Forget();
    Draw({Degrees(50, 175), Degrees(50, -90)});
    ExpectPlotted({{Move, 50, 5}, {Go, 0, 0}});
    const std::vector<SurfaceCall> dots = surface.CallsOf(SurfaceOp::SetPixel);
    ASSERT_EQ(dots.size(), 2U);
    // The map is 20 degrees wide and 120 high.
    const double left = Design.ScreenOriginX / OutputNow.DevicePixelX;
    const double wide = Design.ScreenScaleX * (Design.MapXMax - Design.MapXMin) / OutputNow.DevicePixelX;
    const double high = Design.ScreenScaleY * (Design.MapYMax - Design.MapYMin) / OutputNow.DevicePixelY;
    EXPECT_NEAR(static_cast<double>(dots[0].numbers[0]) - left, wide * 5.0 / 20.0, 1.0);
    EXPECT_NEAR(static_cast<double>(dots[1].numbers[0]) - left, 0.0, 1.0);
    EXPECT_NEAR(static_cast<double>(dots[1].numbers[1] - dots[0].numbers[1]), high * 50.0 / 120.0, 1.0);
}

TEST_F(RectangleClipping, CoastAcrossTheSeamHasNoStrokeAcrossTheMap) {
    Draw({Degrees(10, 179), Degrees(20, -179), Degrees(22, -178)});
    ExpectPlotted({{Move, 10, 359}, {Go, 15, 360}, {Move, 15, 0}, {Go, 20, 1}, {Go, 22, 2}});
}

TEST_F(RectangleClipping, CoastAcrossTheSeamWestward) {
    Draw({Degrees(20, -179), Degrees(10, 179)});
    ExpectPlotted({{Move, 20, 1}, {Go, 15, 0}, {Move, 15, 360}, {Go, 10, 359}});
}

TEST_F(RectangleClipping, PointOnTheOtherEdgeIsDrawnAtThisOne) {
    // 180 E is the eastern edge, 180 W the western one.
    Draw({Degrees(10, 179), Degrees(12, 180), Degrees(13, -180), Degrees(15, -179)});
    ExpectPlotted({{Move, 10, 359}, {Go, 12, 360}, {Go, 13, 360}, {Go, 13, 360}, {Move, 13, 0}, {Go, 15, 1}});
}

TEST_F(RectangleClipping, PointsOnBothEdgesOfAnotherSeamAreJoinedAlongIt) {
    // A file with longitudes up to 360 degrees on a map from Greenwich round to Greenwich.
    Rectangle(ProjEquirectangular, 90, -90, 0, 0);
    Draw({Degrees(10, 0), Degrees(20, 360)});
    ExpectPlotted({{Move, 10, 0}, {Go, 20, 0}, {Move, 20, 360}, {Go, 20, 360}});
}

TEST_F(RectangleClipping, SeamLiesOnTheWesternBoundary) {
    Rectangle(ProjEquirectangular, 90, -90, -30, -30);
    Draw({Degrees(10, -31), Degrees(20, -29)});
    ExpectPlotted({{Move, 10, 359}, {Go, 15, 360}, {Move, 15, 0}, {Go, 20, 1}});
    ForgetPlotted();
    Draw({Degrees(10, 179), Degrees(20, -179)});
    ExpectPlotted({{Move, 10, 209}, {Go, 20, 211}});
}

TEST_F(RectangleClipping, LineAcrossTheGapOfANarrowerMapIsCutAtBothEdges) {
    // 175 W to 175 E: ten degrees are missing. The line covers twelve.
    Rectangle(ProjEquirectangular, 90, -90, -175, 175);
    Draw({Degrees(10, 174), Degrees(22, -174)});
    ExpectPlotted({{Move, 10, 349}, {Go, 11, 350}, {Move, 21, 0}, {Go, 22, 1}});
}

TEST_F(RectangleClipping, LeapOf340DegreesThatFitsNoSeamDrawsNothing) {
    // Relative 0 and 340, neither beyond 340.
    Rectangle(ProjEquirectangular, 90, -90, -175, 175);
    Draw({Degrees(10, -175), Degrees(20, 165)});
    ExpectPlotted({{Move, 10, 0}});
    ForgetPlotted();
    Draw({Degrees(20, 165), Degrees(10, -175)});
    ExpectPlotted({{Move, 20, 340}});
}

TEST_F(RectangleClipping, LineOverTheTopNextToTheSeamStaysOnItsSide) {
    Rectangle(ProjMercator, 80, -80, -180, 180);
    Draw({Degrees(80.5, 179.5), Degrees(79.5, -179.5)});
    ExpectPlotted({{Move, 80, 0}, {Go, 79.5, 0.5}});
    ForgetPlotted();
    Draw({Degrees(79.5, -179.5), Degrees(80.5, 179.5)});
    ExpectPlotted({{Move, 79.5, 0.5}, {Go, 80, 0}});
    ForgetPlotted();
    // Leaves 60 minutes of arc up, 6 of which lie inside, before it reaches the seam.
    Draw({Degrees(79.9, 179.5), Degrees(80.9, -179.5)});
    ExpectPlotted({{Move, 79.9, 359.5}, {Go, 80, 359.6}});
}

TEST_F(RectangleClipping, LineOverTheTopBeyondTheSeamCrossesIt) {
    Rectangle(ProjMercator, 80, -80, -180, 180);
    // One degree up and one to the east: over the seam at 79.6 N, over the top 0.4 degrees beyond.
    Draw({Degrees(79.1, 179.5), Degrees(80.1, -179.5)});
    ExpectPlotted({{Move, 79.1, 359.5}, {Go, 79.6, 360}, {Move, 79.6, 0}, {Go, 80, 0.4}});
    ForgetPlotted();
    Draw({Degrees(80.1, -179.5), Degrees(79.1, 179.5)});
    ExpectPlotted({{Move, 80, 0.4}, {Go, 79.6, 0}, {Move, 79.6, 360}, {Go, 79.1, 359.5}});
    ForgetPlotted();
    Draw({Degrees(-79.1, -179.5), Degrees(-80.1, 179.5)});
    ExpectPlotted({{Move, -79.1, 0.5}, {Go, -79.6, 0}, {Move, -79.6, 360}, {Go, -80, 359.6}});
}

TEST_F(RectangleClipping, LineAlongAWesternEdgeAt180IsNoFailure) {
    // 180 E is relative 360 and lies outside; seen from 180 W it lies on the edge.
    Rectangle(ProjEquirectangular, 60, 30, -180, 20);
    Draw({Degrees(44, 180), Degrees(48, -180), Degrees(50, -178)});
    ExpectPlotted({{Move, 44, 0}, {Go, 48, 0}, {Go, 50, 2}});
    ForgetPlotted();
    Draw({Degrees(70, 180), Degrees(48, -180)});
    ExpectPlotted({{Move, 60, 0}, {Go, 48, 0}});
    ForgetPlotted();
    Draw({Degrees(48, -180), Degrees(20, 180)});
    ExpectPlotted({{Move, 48, 0}, {Go, 30, 0}});
}

TEST_F(RectangleClipping, CutBetweenEqualLongitudesKeepsTheOuterLatitude) {
    // 180 E, moved by a full circle, has the longitude of 180 W: no slope tells a latitude on the edge.
    Rectangle(ProjEquirectangular, 60, 30, -180, 20);
    Draw({Degrees(48, -180), Degrees(44, 180)});
    ExpectPlotted({{Move, 48, 0}, {Go, 44, 0}});
    ForgetPlotted();
    Draw({Degrees(44, 180), Degrees(48, -180)});
    ExpectPlotted({{Move, 44, 0}, {Go, 48, 0}});
}

TEST_F(RectangleClipping, LongitudesBelow180WestAreCutAtTheWesternEdge) {
    // From 179 E eastward: 181 W is relative 0, and 182 W, below it, relative -1.
    Rectangle(ProjEquirectangular, 60, 30, 179, -161);
    Draw({Degrees(50, -179.5), Degrees(53, -182.5)});
    ExpectPlotted({{Move, 50, 1.5}, {Go, 51.5, 0}});
    ForgetPlotted();
    Draw({Degrees(53, -182.5), Degrees(50, -179.5)});
    ExpectPlotted({{Move, 51.5, 0}, {Go, 50, 1.5}});
    ForgetPlotted();
    // Over the top before the edge: at 60 N after two of three degrees.
    Draw({Degrees(58, -179), Degrees(61, -182)});
    ExpectPlotted({{Move, 58, 2}, {Go, 60, 0}});
    ForgetPlotted();
    Draw({Degrees(31, -179), Degrees(27, -182)});
    ExpectPlotted({{Move, 31, 2}, {Go, 30, 1.25}});
}

TEST_F(RectangleClipping, DateLineIsCrossedOnAMapOf20Degrees) {
    // 179 E is relative 9 and 179 W relative 11: two degrees, and no leap of 358.
    AcrossTheDateLine();
    Draw({Degrees(40, 179), Degrees(44, -179)});
    ExpectPlotted({{Move, 40, 9}, {Go, 44, 11}});
    EXPECT_EQ(recorder.Strokes().size(), 1U);
    ForgetPlotted();
    Draw({Degrees(44, -179), Degrees(40, 179)});
    ExpectPlotted({{Move, 44, 11}, {Go, 40, 9}});
    ForgetPlotted();
    // 180 E and 180 W are one place.
    Draw({Degrees(40, 180), Degrees(42, -180), Degrees(44, 180)});
    ExpectPlotted({{Move, 40, 10}, {Go, 42, 10}, {Go, 44, 10}});
}

TEST_F(RectangleClipping, NeighboursOfTheDateLineStayOutsideAMapOf20DegreesElsewhere) {
    // 179 E and 179 W on maps that end at 180 on either side: both in, both out, one of each.
    Rectangle(ProjEquirectangular, 60, 30, 160, 180);
    Draw({Degrees(40, 179), Degrees(44, -179)});
    ExpectPlotted({{Move, 40, 19}, {Go, 42, 20}});
    ForgetPlotted();
    Rectangle(ProjEquirectangular, 60, 30, -180, -160);
    Draw({Degrees(40, 179), Degrees(44, -179)});
    ExpectPlotted({{Move, 42, 0}, {Go, 44, 1}});
    ForgetPlotted();
    Rectangle(ProjEquirectangular, 60, 30, -10, 10);
    Draw({Degrees(40, 179), Degrees(44, -179)});
    EXPECT_THAT(recorder.points, IsEmpty());
}

TEST_F(RectangleClipping, LineDoesNotLeadOnFromAPlaceThatIsNotOnTheMap) {
    // The south pole of this cone lies at infinity.
    Rectangle(ProjConformalConic, 75, -60, -180, 180);
    Design.LatSouthSec = -90 * SecPerDegree;
    Draw({Degrees(50, 0), Degrees(-90, 0), Degrees(50, 10), Degrees(50, 11)});
    ExpectPlotted({{Move, 50, 180}, {Move, 50, 190}, {Go, 50, 191}});
}

TEST_F(RectangleClipping, CutsCloseTheChainOfAFile) {
    AcrossTheDateLine();
    Draw({Degrees(55, 172), Degrees(65, 172), Degrees(55, 174)});
    // Behind the exit, point 2; the counter then stands at 0, so that the entry needs no break.
    EXPECT_THAT(recorder.breaksBehind, testing::ElementsAre(2U));
}

TEST_F(RectangleClipping, BoundsAddAFullCircleOnce) {
    MapPoint point;
    point.BeginFile();
    const auto relative = [&](double lon) {
        Design.PointLatSec = 0;
        Design.PointLonSec = static_cast<std::int32_t>(lon * SecPerDegree);
        point.TestBounds();
        return Design.PointLonSec;
    };
    EXPECT_EQ(relative(180), SecPerCircle);
    EXPECT_TRUE(point.PointInBounds);
    EXPECT_EQ(relative(-180), 0);
    EXPECT_TRUE(point.PointInBounds);
    EXPECT_EQ(relative(-541), -SecPerDegree);
    EXPECT_FALSE(point.PointInBounds);
    EXPECT_EQ(relative(181), SecPerCircle + SecPerDegree);
    EXPECT_FALSE(point.PointInBounds);
}

TEST_F(RectangleClipping, LongitudeOfAMapAcross180GrowsEastward) {
    AcrossTheDateLine();
    EXPECT_EQ(Design.LonSpanSec, 72000);
    MapPoint point;
    point.BeginFile();
    Design.PointLonSec = 179 * SecPerDegree;
    point.TestBounds();
    EXPECT_EQ(Design.PointLonSec, 9 * SecPerDegree);
    Design.PointLonSec = -179 * SecPerDegree;
    point.TestBounds();
    EXPECT_EQ(Design.PointLonSec, 11 * SecPerDegree);
}

TEST_F(RectangleClipping, LongitudeThatDoesNotFitIsAnOverflow) {
    MapPoint point;
    point.BeginFile();
    Design.PointLonSec = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(ErrorOf([&] { point.TestBounds(); }), ErrorOverflow);
}

TEST_F(RectangleClipping, SymbolsAreDrawnAtCutsToo) {
    AcrossTheDateLine();
    Design.CurrentSymbolType = SymbolDot;
    surface.Forget();
    Draw({Degrees(55, 175), Degrees(65, 175)});
    EXPECT_EQ(surface.Count(SurfaceOp::SetPixel), 2);
}

TEST_F(RectangleClipping, UnknownProjectionDrawsNothing) {
    Design.ProjNum = 35;
    Draw({Degrees(55, 175), Degrees(50, 175)});
    EXPECT_THAT(recorder.points, IsEmpty());
}

} // namespace
} // namespace quelmont
