#include "view/measuring.h"

#include "circles/great_circle.h"
#include "core/map_design.h"
#include "mainwindow/main_window_state.h"
#include "mainwindow/map_draw.h"
#include "mainwindow/started_program.h"
#include "projection/projection_table.h"
#include "view/line_on_picture.h"
#include "view/map_clicks.h"
#include "view/position.h"
#include "view/view_status.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdlib>

namespace quelmont {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

/// The window has 1280 x 924 pixels. The world is drawn true at 45 degrees: 1279 columns for 360 degrees, and
/// a row is the square root of a half of a column.
class Measuring : public StartedProgram {};

TEST_F(Measuring, ShiftAndTwoClicksTellDistanceAndCourse) {
    MapDraw();
    // A hundred rows along a meridian: 100 * 360 / 1279 * 0.70710678 degrees, 1194.184 minutes.
    TakeClick({640, 200}, true);
    EXPECT_THAT(window.statusText, StartsWith("From 52\u00B0"));
    EXPECT_EQ(window.pointer, MousePointer::Cross);
    PointAtMap({{640, 300}});
    EXPECT_TRUE(window.previewShown);
    EXPECT_THAT(window.statusText, StartsWith("2,213 km   1,375 mi   1,194 nmi   course 180.0\u00B0"));
    TakeClick({640, 300}, false);
    EXPECT_FALSE(AwaitsSecondPlace());
    EXPECT_EQ(window.pointer, MousePointer::Normal);
    PointAtMap({{900, 500}});
    EXPECT_THAT(window.statusText, StartsWith("2,213 km   1,375 mi   1,194 nmi   course 180.0\u00B0"))
        << "it stays when the mouse goes on";
    EXPECT_TRUE(window.previewShown);
}

TEST_F(Measuring, IsThatOfTheGreatCircleReport) {
    // 37 47 N 122 26 W to 29 20 N 47 59 E: 6737.199 minutes, course 9.024.
    const GreatCircleTable route = GreatCircleBetween(
        {37.0 + 47.0 / 60.0, -122.0 - 26.0 / 60.0, 29.0 + 20.0 / 60.0, 47.0 + 59.0 / 60.0});
    EXPECT_NEAR(route.Row(route.GcLast).GcDist, 6737.199221, 1e-6);
    EXPECT_NEAR(route.Row(route.GcFirst).GcAzimuth, 9.024316, 1e-6);
    EXPECT_EQ(DistanceText(6737.199221, 9.024316), "12,486 km   7,758 mi   6,737 nmi   course 009.0\u00B0");
}

TEST_F(Measuring, WestwardRoutesAreMeasuredFromTheirStart) {
    MapDraw();
    TakeClick({900, 300}, true);
    TakeClick({700, 300}, false);
    EXPECT_THAT(window.statusText, HasSubstr("nmi   course 2"))
        << "the way to a place in the west at the same northern latitude begins west by north";
}

TEST(DistanceText, HasFourDigits) {
    EXPECT_EQ(DistanceText(0.0, 90.0), "0.000 km   0.000 mi   0.000 nmi   course 090.0\u00B0");
    EXPECT_EQ(DistanceText(1.0, 0.0), "1.853 km   1.152 mi   1.000 nmi   course 000.0\u00B0");
    EXPECT_EQ(DistanceText(60.0, 359.96), "111.2 km   69.09 mi   60.00 nmi   course 000.0\u00B0");
}

TEST_F(Measuring, EscapeTakesItOff) {
    MapDraw();
    TakeClick({640, 200}, true);
    PointAtMap({{640, 300}});
    EXPECT_TRUE(EscapeClicks());
    EXPECT_FALSE(window.previewShown);
    EXPECT_EQ(window.pointer, MousePointer::Normal);
    EXPECT_THAT(window.statusText, StartsWith("32\u00B0")) << "the place under the mouse again";
    EXPECT_FALSE(EscapeClicks()) << "nothing is left to end";
}

TEST_F(Measuring, NextPlainClickTakesAFinishedOneOff) {
    MapDraw();
    TakeClick({640, 200}, true);
    TakeClick({640, 300}, true);
    EXPECT_TRUE(IsMeasuring());
    TakeClick({500, 300}, false);
    EXPECT_FALSE(IsMeasuring());
    EXPECT_FALSE(window.previewShown);
}

TEST_F(Measuring, CommandTakesItOff) {
    MapDraw();
    TakeClick({640, 200}, true);
    EndClicks();
    EXPECT_FALSE(IsMeasuring());
}

TEST_F(Measuring, PlacesBesideTheMapAreNoClicks) {
    TakeClick({640, 200}, true);
    EXPECT_FALSE(IsMeasuring()) << "there is no map yet";
    MapDraw();
    TakeClick({640, 2}, true);
    EXPECT_FALSE(IsMeasuring());
    TakeClick({640, 200}, true);
    PointAtMap({{640, 300}});
    PointAtMap({{640, 2}});
    EXPECT_FALSE(window.previewShown);
    EXPECT_THAT(window.statusText, HasSubstr("click the other place"));
    TakeClick({640, 2}, false);
    EXPECT_TRUE(AwaitsSecondPlace());
    PointAtMap(std::nullopt);
    EXPECT_TRUE(AwaitsSecondPlace());
}

TEST_F(Measuring, DoubleClickThatEndsOneIsNoOtherClick) {
    MapDraw();
    EXPECT_FALSE(TakeSecondClick());
    TakeClick({640, 200}, true);
    TakeClick({640, 300}, false);
    EXPECT_TRUE(TakeSecondClick());
    EXPECT_FALSE(TakeClick({500, 300}, false)) << "and a plain click is left to others";
}

TEST_F(Measuring, LeavesTheDesignAsItWas) {
    AcceptProjection(ProjInterruptedMollweide);
    MapDraw();
    const MapDesign before = Design;
    TakeClick({500, 400}, true);
    PointAtMap({{700, 600}});
    EXPECT_TRUE(IsMeasuring());
    EXPECT_EQ(Design.LonWest, before.LonWest);
    EXPECT_EQ(Design.LatNorthSec, before.LatNorthSec);
    EXPECT_EQ(Design.LobeOffsetX, before.LobeOffsetX);
    EXPECT_EQ(Design.GcTable.Rows.size(), before.GcTable.Rows.size());
    EXPECT_TRUE(machine.boxes.asked.empty());
}

// ---- The line on the picture.

using Vector = std::array<double, 3>;

Vector OnSphere(const GlobePlace& place) {
    const double phi = place.lat * DegToRad;
    const double lambda = place.lon * DegToRad;
    return {std::cos(phi) * std::cos(lambda), std::cos(phi) * std::sin(lambda), std::sin(phi)};
}

Vector Cross(const Vector& a, const Vector& b) {
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// How far a place lies from the circle through two others, radians.
double OffCircle(const GlobePlace& place, const GlobePlace& from, const GlobePlace& to) {
    const Vector normal = Cross(OnSphere(from), OnSphere(to));
    const Vector v = OnSphere(place);
    const double length = std::hypot(normal[0], normal[1], normal[2]);
    return std::fabs(normal[0] * v[0] + normal[1] * v[1] + normal[2] * v[2]) / length;
}

TEST_F(Measuring, LineLiesOnTheGreatCircleOnEveryProjection) {
    for (const ProjectionEntry& entry : Projections) {
        SCOPED_TRACE(entry.ProjName);
        AcceptProjection(entry.ProjNum);
        MapDraw();
        const SurfacePoint a{600, 420};
        const SurfacePoint b{680, 560};
        const auto from = PositionAt(a);
        const auto to = PositionAt(b);
        ASSERT_TRUE(from && to);
        const PicturePieces pieces = LineOnPicture(
            GreatCircleBetween({from->place.lat, from->place.lon, to->place.lat, to->place.lon}));
        ASSERT_FALSE(pieces.empty());
        // A pixel of the map, and what rounding to pixels adds; on UTM the globe is an ellipsoid.
        const double pixel = 2.5 * DegreesPerPixel(*from) * DegToRad;
        bool fromReached = false;
        bool toReached = false;
        for (const auto& piece : pieces) {
            for (const SurfacePoint point : piece) {
                fromReached = fromReached || (std::abs(point.x - a.x) <= 1 && std::abs(point.y - a.y) <= 1);
                toReached = toReached || (std::abs(point.x - b.x) <= 1 && std::abs(point.y - b.y) <= 1);
                if (const auto place = PositionAt(point)) {
                    EXPECT_LT(OffCircle(place->place, from->place, to->place), pixel)
                        << point.x << ", " << point.y;
                }
            }
        }
        EXPECT_TRUE(fromReached);
        EXPECT_TRUE(toReached);
    }
}

TEST_F(Measuring, LineOverTheSeamIsTwoPieces) {
    MapDraw();
    const PicturePieces pieces = LineOnPicture(GreatCircleBetween({40.0, 150.0, 40.0, -120.0}));
    ASSERT_EQ(pieces.size(), 2U);
    for (const auto& piece : pieces) {
        for (std::size_t i = 1; i < piece.size(); ++i) {
            EXPECT_LT(std::abs(piece[i].x - piece[i - 1].x), 20);
        }
    }
    EXPECT_GT(pieces[0].back().x, 1270) << "it goes on to the edge";
    EXPECT_LT(pieces[1].front().x, 10);
}

TEST_F(Measuring, NothingIsDrawnBeyondTheHorizon) {
    AcceptProjection(ProjOrthographic);
    MapDraw();
    const double south = -Design.LatCentral;
    double lon = Design.LonWest + Design.LonCentral + 180.0;
    lon -= lon > 180.0 ? 360.0 : 0.0;
    EXPECT_TRUE(LineOnPicture(GreatCircleBetween({south, lon, south + 5.0, lon})).empty());
}

} // namespace
} // namespace quelmont
