#include "mapinput/circle_plot.h"

#include "circles/great_circle.h"
#include "circles/small_circle.h"
#include "map_fixture.h"
#include "mapinput/map_plot.h"
#include "projection/projection_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CirclePlot : public MapTest {
protected:
    static void GreatCircle(double startLat, double startLon, double endLat, double endLon) {
        Design.GcStartLat = startLat;
        Design.GcStartLon = startLon;
        Design.GcEndLat = endLat;
        Design.GcEndLon = endLon;
        GcCalc();
        Design.GcDefined = true;
    }
    static void SmallCircles(double lat, double lon, double radius, int circles) {
        Design.ScCenterLat = lat;
        Design.ScCenterLon = lon;
        Design.ScRadiusDeg = radius;
        Design.ScSymbolCount = static_cast<std::int16_t>(circles);
        ScCalc();
        Design.ScDefined = true;
    }
    void Plot() {
        recorder.points.clear();
        recorder.breaksBehind.clear();
        surface.Forget();
        StartRecording();
        MapPlot();
    }
    std::size_t Moves() const {
        return static_cast<std::size_t>(std::count_if(recorder.points.begin(), recorder.points.end(),
                                                      [](const PlottedPoint& point) { return point.move; }));
    }
    /// In earth radii, or metres.
    static double LengthOf(const PlottedStroke& stroke) {
        return std::hypot(stroke.to.x - stroke.from.x, stroke.to.y - stroke.from.y);
    }
};

TEST_F(CirclePlot, SmallCirclesComeBeforeTheGreatCircleEachWithItsPen) {
    Design.ScColor = SolidColor(0x112233);
    Design.ScLineWidth = 30.0F; // twips, 15 to a pixel
    Design.GcColor = SolidColor(0x445566);
    Design.GcLineWidth = 75.0F;
    SmallCircles(0.0, 0.0, 5.0, 1);
    GreatCircle(10.0, 10.0, 20.0, 30.0);
    Plot();
    ASSERT_EQ(Moves(), 2U);
    ASSERT_FALSE(surface.Segments().empty());
    EXPECT_EQ(surface.Segments().front().pen, (RecordedPen{PenStyleSolid, 2, 0x112233}));
    EXPECT_EQ(surface.Segments().back().pen, (RecordedPen{PenStyleSolid, 5, 0x445566}));
    EXPECT_NEAR(recorder.points.front().lat, 5.0, 1e-9);
    EXPECT_NEAR(recorder.points.back().lat, 20.0, 1e-9);
    EXPECT_EQ(surface.LiveObjects(), 0);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(CirclePlot, OnlyThoseThatAreDefinedAreDrawn) {
    SmallCircles(0.0, 0.0, 5.0, 1);
    GreatCircle(10.0, 10.0, 20.0, 30.0);
    Design.ScDefined = false;
    Plot();
    EXPECT_EQ(recorder.points.size(), Design.GcTable.Rows.size());
    Design.GcDefined = false;
    Plot();
    EXPECT_THAT(recorder.points, IsEmpty());
    EXPECT_EQ(surface.Count(SurfaceOp::CreatePen), 0);
}

TEST_F(CirclePlot, FollowsTheMapFiles) {
    AddFile("first.map", Line(1, {{0, 0}, {0, 60}}));
    GreatCircle(10.0, 10.0, 20.0, 30.0);
    Plot();
    ASSERT_GT(recorder.points.size(), 2U);
    EXPECT_EQ(recorder.points[0].lat, 0.0);
    EXPECT_TRUE(recorder.points[2].move);
    EXPECT_EQ(recorder.points[2].lat, 10.0);
}

TEST_F(CirclePlot, EachSmallCircleIsALineOfItsOwn) {
    SmallCircles(10.0, 20.0, 9.0, 3);
    Plot();
    EXPECT_EQ(Moves(), 3U);
    EXPECT_THAT(recorder.breaksBehind, ElementsAre(361U, 722U, 1083U));
}

TEST_F(CirclePlot, GreatCircleIsDrawnFromItsStart) {
    GreatCircle(50.0, -179.0, 50.0, 177.0);
    ASSERT_EQ(Design.GcTable.GcStep, -1);
    Plot();
    EXPECT_NEAR(recorder.points.front().lon, 1.0, 1e-9);
    EXPECT_NEAR(recorder.points.back().lon, 357.0, 1e-9);
    EXPECT_EQ(Moves(), 2U) << "the map's edges are the 180th meridian";
}

TEST_F(CirclePlot, RowOfAPoleIsPlottedOnBothMeridians) {
    GreatCircle(89.0, 20.0, 88.0, -160.0);
    Plot();
    std::vector<std::pair<double, double>> places;
    std::vector<bool> moves;
    for (const PlottedPoint& point : recorder.points) {
        places.emplace_back(point.lat, point.lon - 180.0);
        moves.push_back(point.move);
    }
    EXPECT_THAT(places, ElementsAre(std::pair(89.0, 20.0), std::pair(90.0, 20.0), std::pair(90.0, -160.0),
                                    std::pair(89.0, -160.0), std::pair(88.0, -160.0)));
    EXPECT_THAT(moves, ElementsAre(true, false, true, false, false));
}

TEST_F(CirclePlot, RouteThatEndsAtAPoleIsOneLine) {
    GreatCircle(-88.0, 20.0, -90.0, 20.0);
    Plot();
    EXPECT_EQ(recorder.points.size(), 3U);
    EXPECT_EQ(Moves(), 1U);
}

TEST_F(CirclePlot, LineIsCutAtTheEdgeOfTheMap) {
    Rectangle(ProjEquirectangular, 30.0, 0.0, -30.0, 30.0);
    GreatCircle(10.0, -40.0, 10.0, 40.0);
    Plot();
    ASSERT_FALSE(recorder.points.empty());
    EXPECT_TRUE(recorder.points.front().move);
    EXPECT_NEAR(recorder.points.front().lon, 0.0, 1e-3);
    EXPECT_NEAR(recorder.points.back().lon, 60.0, 1e-3);
    EXPECT_EQ(Moves(), 1U);
}

TEST_F(CirclePlot, MapSmallerThanItsStepsIsCrossed) {
    // Rows of 30 N 0 E to 30 N 60 E lie 52 minutes apart, and the map is 6 minutes wide: it lies on the
    // middle of the step at 30 and a half degrees east, where tan(lat) = tan(30) cos(0.5) / cos(30).
    const double lat = std::atan(std::tan(M_PI / 6) * std::cos(M_PI / 360) / std::cos(M_PI / 6)) * 180 / M_PI;
    Rectangle(ProjEquirectangular, std::round(lat * 60) / 60 + 0.05, std::round(lat * 60) / 60 - 0.05, 30.45,
              30.55);
    GreatCircle(30.0, 0.0, 30.0, 60.0);
    Plot();
    ASSERT_GE(recorder.points.size(), 2U);
    EXPECT_EQ(Moves(), 1U);
    EXPECT_NEAR(recorder.points.front().lon, 0.0, 1e-3);
    EXPECT_NEAR(recorder.points.back().lon, 0.1, 1e-3);
    for (const PlottedPoint& point : recorder.points) {
        EXPECT_NEAR(point.lat, lat, 2.0 / 3600.0);
    }
}

TEST_F(CirclePlot, ZoneSmallerThanItsStepsIsCrossed) {
    // 9 W is the middle of the zone; the parallel of 40 N lies near northing 4427757.
    Zone(4440000, 4420000, 490000, 510000);
    SmallCircles(30.0, -9.5, 10.0, 1);
    Plot();
    EXPECT_EQ(Moves(), 1U);
    EXPECT_GE(recorder.points.size(), 3U);
}

TEST_F(CirclePlot, LineBeforeItDoesNotLeadIntoIt) {
    // The map file ends outside, and the circle begins inside.
    Rectangle(ProjEquirectangular, 30.0, 0.0, -30.0, 30.0);
    AddFile("first.map", Line(1, {{60, 0}, {60, 3600}}));
    GreatCircle(10.0, -10.0, 10.0, 10.0);
    Plot();
    const auto first = std::find_if(recorder.points.begin(), recorder.points.end(),
                                    [](const PlottedPoint& point) { return point.lat >= 10.0; });
    ASSERT_NE(first, recorder.points.end());
    EXPECT_TRUE(first->move);
    EXPECT_NEAR(first->lon, 20.0, 1e-9);
}

TEST_F(CirclePlot, ExportInTextHasNoCirclesAndGoesOnBehindThem) {
    GreatCircle(10.0, 10.0, 20.0, 30.0);
    recorder.points.clear();
    Writers().ascii = &recorder;
    Design.OutputWmf = false;
    Design.OutputAscii = true;
    Design.OutputFileName = "map.txt";
    Design.LobeLast = false;
    Design.ProjNum = ProjInterruptedMollweide;
    MapPlot();
    EXPECT_THAT(recorder.points, IsEmpty());
    EXPECT_TRUE(Design.OutputAscii) << "the next lobe is written too";
    EXPECT_EQ(Design.OutputFileName, "map.txt");
    EXPECT_FALSE(surface.Segments().empty()) << "the window shows the circle";
}

TEST_F(CirclePlot, EscapeStopsIt) {
    SmallCircles(10.0, 20.0, 9.0, 80);
    GreatCircle(10.0, 10.0, 20.0, 30.0);
    machine.pump.At(2, [] { PressEscape(); });
    Plot();
    EXPECT_EQ(machine.pump.calls, 2);
    EXPECT_EQ(surface.Count(SurfaceOp::LineTo), 1599) << "events run before every 800th point";
    EXPECT_EQ(surface.LiveObjects(), 0);
}

TEST_F(CirclePlot, EscapeInAnExportInTextDoesNotArmItAgain) {
    SmallCircles(10.0, 20.0, 9.0, 3);
    Writers().ascii = &recorder;
    Design.OutputWmf = false;
    Design.OutputAscii = true;
    Design.OutputFileName = "map.txt";
    machine.pump.At(1, [] {
        PressEscape();
        Design.OutputAscii = false;
    });
    MapPlot();
    EXPECT_FALSE(Design.OutputAscii);
    EXPECT_EQ(Design.OutputFileName, "");
}

TEST_F(CirclePlot, FailuresOfPensNameTheirSites) {
    SmallCircles(0.0, 0.0, 5.0, 1);
    surface.FailAt(SurfaceOp::CreatePen, 1);
    MapPlot();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "CreatePen(8) error in MapPlot"}));
    surface.FailAt(SurfaceOp::DeleteObject, 1);
    MapPlot();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Windows API Error", "DeleteObject(17) error in MapPlot"}));
}

TEST_F(CirclePlot, BesideTheAntipodeOfTheCentreItFollowsTheRim) {
    Circle(ProjAzimuthalEquidistant, 0.0, 0.0, 180.0);
    // A hundredth of a degree beside it, and exactly through it.
    for (const double lat : {0.01, 0.0}) {
        GreatCircle(lat, 170.0, lat, -170.0);
        Plot();
        for (const PlottedStroke& stroke : recorder.Strokes()) {
            EXPECT_LT(LengthOf(stroke), 0.4);
        }
        EXPECT_EQ(Moves(), lat == 0.0 ? 2U : 1U);
    }
}

// ---- No stroke across the map.

/// Circles about and between random places.
class CircleStrokes : public CirclePlot, public testing::WithParamInterface<ProjectionEntry> {
protected:
    double Uniform(double most) { return std::uniform_real_distribution<double>(-most, most)(random); }
    bool Rarely() { return random() % 8 == 0; }
    double Latitude() { return Rarely() ? std::round(Uniform(1.4)) * 90.0 : Uniform(90.0); }
    double Longitude() { return Rarely() ? std::round(Uniform(2.4)) * 90.0 : Uniform(180.0); }

    void RandomMap() {
        const std::int16_t projNum = GetParam().ProjNum;
        switch (GetParam().family) {
        case ProjectionFamily::Azimuthal:
            Circle(projNum, std::round(Latitude()), std::round(Longitude()),
                   GetParam().wholeGlobe ? 180.0 : 60.0);
            return;
        case ProjectionFamily::MetricGrid:
            Zone(7000000, 1000000, 200000, 800000);
            return;
        case ProjectionFamily::Conic:
            Rectangle(projNum, 84.0, -30.0, -180.0, 180.0);
            return;
        default:
            if (projNum == ProjInterruptedMollweide) {
                Lobe(-100.0, 20.0);
            } else if (projNum == ProjMercator) {
                Rectangle(projNum, 81.0, -81.0, 30.0, 30.0);
            } else {
                const double west = std::round(Longitude());
                Rectangle(projNum, 90.0, -90.0, west, west);
            }
        }
    }
    void RandomCircles() {
        const double lat = Latitude();
        const double lon = Longitude();
        GreatCircle(lat, lon, Rarely() ? -lat : Latitude(),
                    Rarely() ? lon - std::copysign(180.0, lon) : Longitude());
        const double centre = Latitude();
        SmallCircles(centre, Longitude(), Rarely() ? 90.0 - std::fabs(centre) : Uniform(90.0) + 90.0,
                     1 + static_cast<int>(random() % 3));
    }

    std::mt19937 random{1859};
};

TEST_P(CircleStrokes, NeverLeadAcrossTheMap) {
    for (int trial = 0; trial < 300; ++trial) {
        RandomMap();
        RandomCircles();
        Plot();
        ASSERT_THAT(machine.boxes.asked, IsEmpty());
        const bool disc = GetParam().family == ProjectionFamily::Azimuthal;
        const bool metres = GetParam().family == ProjectionFamily::MetricGrid;
        for (const PlottedStroke& stroke : recorder.Strokes()) {
            // Rows lie up to four degrees apart, joined points up to twenty degrees of longitude.
            const double share = LengthOf(stroke) / (Design.MapXMax - Design.MapXMin);
            const double most = metres ? 1.0 : disc ? 0.15 : 0.1;
            ASSERT_LT(share, most) << stroke.from << ", " << stroke.to << ", great circle "
                                   << Design.GcStartLat << ' ' << Design.GcStartLon << " to "
                                   << Design.GcEndLat << ' ' << Design.GcEndLon << ", small circles "
                                   << Design.ScCenterLat << ' ' << Design.ScCenterLon << ' '
                                   << Design.ScRadiusDeg << ", centre " << Design.LatCentral << ' '
                                   << Design.LonWest + Design.LonCentral;
            if (!metres && !disc) {
                ASSERT_LE(std::fabs(stroke.to.lon - stroke.from.lon), 20.001);
            }
        }
    }
}

INSTANTIATE_TEST_SUITE_P(All, CircleStrokes, testing::ValuesIn(Projections),
                         [](const auto& test) { return "Number" + std::to_string(test.param.ProjNum); });

} // namespace
} // namespace quelmont
