#include "core/map_design.h"
#include "graticule/calc_graticule.h"
#include "graticule/grid_fixture.h"
#include "graticule/grid_texts.h"
#include "graticule/lobes.h"
#include "graticule/map_outline.h"
#include "output/scale_screen.h"
#include "projection/inverse_place.h"
#include "projection/inverse_select.h"
#include "projection/param_select.h"
#include "projection/projection_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>
#include <string>

/// The edge of the map: on every projection it lies where the inverse has the bounds, and it goes round all
/// of the map and nothing else.

namespace quelmont {
namespace {

using testing::SizeIs;

constexpr double Degree = std::numbers::pi / 180.0;

/// Twice the area of a ring, positive when it is walked counter-clockwise.
double SignedArea(const std::vector<PlanePlace>& ring) {
    double area = 0.0;
    for (std::size_t i = 0; i < ring.size(); ++i) {
        const PlanePlace& a = ring[i];
        const PlanePlace& b = ring[(i + 1) % ring.size()];
        area += (a.x * b.y - b.x * a.y) / 2.0;
    }
    return area;
}

double AreaOf(const MapOutline& outline) {
    double area = 0.0;
    for (const auto& ring : outline.rings) {
        area += SignedArea(ring);
    }
    return area;
}

/// Of the unit sphere between two parallels, for so many degrees of longitude.
double AreaOnSphere(double south, double north, double span) {
    return (std::sin(north * Degree) - std::sin(south * Degree)) * span * Degree;
}

double SizeOfMap() { return std::max(Design.MapXMax - Design.MapXMin, Design.MapYMax - Design.MapYMin); }

/// Remainder of a division, in either direction.
double Off(double value, double step) { return std::fabs(value - step * std::round(value / step)); }

class Outline : public GridTest {
protected:
    /// A map between bounds in whole degrees.
    void StartRectangle(std::int16_t projNum, int north, int south, int west, int east, int spacing) {
        quelmont::StartRectangle(projNum, north, south, west, east, spacing);
        PrepareDesign();
    }
    void StartDisc(std::int16_t projNum, int lat, int lon, int range) {
        quelmont::StartDisc(projNum, lat, lon, range);
        PrepareDesign();
    }
    /// The whole world between 20 E and 20 E, cut twice in the north and twice in the south.
    void StartLobes(int north, int south) {
        StartDesign(ProjInterruptedMollweide);
        Design.GridText[GridTextNorth] = LatitudeText(north * 3600);
        Design.GridText[GridTextSouth] = LatitudeText(south * 3600);
        Design.GridText[GridTextLatSpacing] = ArcText(10 * 3600);
        Design.GridText[GridTextLonSpacing] = ArcText(10 * 3600);
        Design.GridText[GridTextWest] = LongitudeText(20 * 3600);
        Design.GridText[GridTextEast] = LongitudeText(20 * 3600);
        Design.LobeText[LobeTextCountNorth] = "2";
        Design.LobeText[LobeTextCountSouth] = "2";
        constexpr std::array boundaries = {20, -100, 0, 20, 20, 140, -70, 20};
        for (std::size_t i = 0; i < boundaries.size(); ++i) {
            Design.LobeLonDeg[i] = boundaries[i];
            Design.LobeLonText[i] = LongitudeText(boundaries[i] * 3600);
        }
        CalcGraticule();
        LonInterruptOffset();
        ParamSelect();
        ScaleScreen();
    }

    /// That each mark stands where a line of the grid ends, and points off the map.
    static void ExpectMarksOnGrid(const MapOutline& outline) {
        const double little = 1e-7 * SizeOfMap();
        for (const OutlineMark& mark : outline.marks) {
            EXPECT_NEAR(std::hypot(mark.outward.x, mark.outward.y), 1.0, 1e-9);
            const double x = mark.at.x - mark.outward.x * little;
            const double y = mark.at.y - mark.outward.y * little;
            const auto inside = InverseSelect(x, y);
            ASSERT_TRUE(inside) << mark.at.x << ", " << mark.at.y;
            const double lat = Off(inside->lat - Design.LatSouth, Design.LatGrid);
            const double lon = Off(inside->lon - Design.LonZero, Design.LonGrid);
            // On a horizon a ten millionth of the map is a tenth of a degree.
            EXPECT_LT(std::min(lat, lon), Design.ProjNum == ProjVerticalPerspective ? 0.3 : 0.02)
                << inside->lat << ", " << inside->lon;
            EXPECT_TRUE(PlaceAt(x, y));
            EXPECT_FALSE(PlaceAt(mark.at.x + mark.outward.x * little * 10.0,
                                 mark.at.y + mark.outward.y * little * 10.0));
        }
    }
};

TEST_F(Outline, ARectangleHasFourCornersAndATickAtEachLineOfTheGrid) {
    for (const std::int16_t projNum : {ProjEquirectangular, ProjCylindricalEqualArea}) {
        Start(projNum);
        const MapOutline outline = OutlineOfMap();
        ASSERT_THAT(outline.rings, SizeIs(1));
        EXPECT_THAT(outline.rings[0], SizeIs(4));
        EXPECT_NEAR(AreaOf(outline), (Design.MapXMax - Design.MapXMin) * (Design.MapYMax - Design.MapYMin),
                    1e-9);
        // Meridians every 45 degrees, seven of them between the edges, and five parallels.
        EXPECT_THAT(outline.marks, SizeIs(2 * 7 + 2 * 5));
        ExpectMarksOnGrid(outline);
    }
}

TEST_F(Outline, MercatorAndUtmAreRectangles) {
    StartRectangle(ProjMercator, 60, -60, 100, -70, 10);
    MapOutline outline = OutlineOfMap();
    ASSERT_THAT(outline.rings, SizeIs(1));
    EXPECT_THAT(outline.rings[0], SizeIs(4));
    // 190 degrees of longitude, 120 of latitude.
    EXPECT_THAT(outline.marks, SizeIs(2 * 18 + 2 * 11));
    ExpectMarksOnGrid(outline);

    Start(ProjUtm);
    outline = OutlineOfMap();
    ASSERT_THAT(outline.rings, SizeIs(1));
    EXPECT_EQ(outline.rings[0],
              (std::vector<PlanePlace>{
                  {300000, 5600000}, {800000, 5600000}, {800000, 6200000}, {300000, 6200000}}));
    EXPECT_THAT(outline.marks, SizeIs(2 * 4 + 2 * 5));
    ExpectMarksOnGrid(outline);
}

TEST_F(Outline, AnEqualAreaMapHasTheAreaOfItsPartOfTheGlobe) {
    for (const std::int16_t projNum : {ProjHammer, ProjMollweide, ProjCylindricalEqualArea}) {
        StartRectangle(projNum, 90, -90, 20, 20, 30);
        EXPECT_NEAR(AreaOf(OutlineOfMap()), 4.0 * std::numbers::pi, 1e-3) << projNum;
        StartRectangle(projNum, 60, 10, 160, -120, 10);
        EXPECT_NEAR(AreaOf(OutlineOfMap()), AreaOnSphere(10, 60, 80), 1e-4) << projNum;
        StartRectangle(projNum, -20, -80, 0, 100, 10);
        EXPECT_NEAR(AreaOf(OutlineOfMap()), AreaOnSphere(-80, -20, 100), 1e-4) << projNum;
    }
    StartRectangle(ProjAlbers, 70, 20, -10, 60, 10);
    EXPECT_NEAR(AreaOf(OutlineOfMap()), AreaOnSphere(20, 70, 70), 1e-4);
    StartRectangle(ProjAlbers, -10, -45, 110, 160, 5);
    EXPECT_NEAR(AreaOf(OutlineOfMap()), AreaOnSphere(-45, -10, 50), 1e-4);
    for (const int range : {10, 60, 120}) {
        StartDisc(ProjAzimuthalEqualArea, 40, 15, range);
        // A disc's circle of 360 chords is smaller by 2e-4 of its area at most.
        EXPECT_NEAR(AreaOf(OutlineOfMap()) / (2.0 * std::numbers::pi * (1.0 - std::cos(range * Degree))), 1.0,
                    2e-4);
    }
}

TEST_F(Outline, LobesThatMeetOnTheEquatorHaveOneOutlineOfTheWholeMap) {
    StartLobes(90, -90);
    MapOutline outline = OutlineOfMap();
    ASSERT_THAT(outline.rings, SizeIs(1));
    EXPECT_NEAR(AreaOf(outline), 4.0 * std::numbers::pi, 1e-3);
    StartLobes(80, -50);
    outline = OutlineOfMap();
    ASSERT_THAT(outline.rings, SizeIs(1));
    EXPECT_NEAR(AreaOf(outline), AreaOnSphere(-50, 80, 360), 1e-3);
    StartLobes(80, 0);
    outline = OutlineOfMap();
    ASSERT_THAT(outline.rings, SizeIs(1));
    EXPECT_NEAR(AreaOf(outline), AreaOnSphere(0, 80, 360), 1e-3);
    StartLobes(0, -70);
    outline = OutlineOfMap();
    ASSERT_THAT(outline.rings, SizeIs(1));
    EXPECT_NEAR(AreaOf(outline), AreaOnSphere(-70, 0, 360), 1e-3);
}

TEST_F(Outline, LobesThatDoNotReachTheEquatorHaveAnOutlineEach) {
    StartLobes(80, 20);
    MapOutline outline = OutlineOfMap();
    ASSERT_THAT(outline.rings, SizeIs(3));
    EXPECT_NEAR(SignedArea(outline.rings[0]), AreaOnSphere(20, 80, 240), 1e-3);
    EXPECT_NEAR(SignedArea(outline.rings[1]), AreaOnSphere(20, 80, 100), 1e-3);
    EXPECT_NEAR(SignedArea(outline.rings[2]), AreaOnSphere(20, 80, 20), 1e-3);
    StartLobes(-20, -60);
    EXPECT_THAT(OutlineOfMap().rings, SizeIs(3));
}

TEST_F(Outline, LobesOfADrawInProgressAreStillTheWholeMap) {
    StartLobes(90, -90);
    const std::size_t points = OutlineOfMap().rings[0].size();
    CalcGraticuleInterrupt(2);
    Design.LobeOffsetX = 1.25;
    Design.ProjX = 0.5;
    EXPECT_EQ(OutlineOfMap().rings[0].size(), points);
    EXPECT_EQ(Design.LonSpan, 100.0) << "of the lobe in force";
    EXPECT_EQ(Design.LobeOffsetX, 1.25);
    EXPECT_EQ(Design.ProjX, 0.5);
}

TEST_F(Outline, EveryPointLiesOnABoundOfTheMap) {
    for (const ProjectionEntry& entry : Projections) {
        if (entry.family == ProjectionFamily::Azimuthal || entry.family == ProjectionFamily::MetricGrid ||
            entry.ProjNum == ProjInterruptedMollweide) {
            continue;
        }
        StartRectangle(entry.ProjNum, 70, 10, -10, 90, 10);
        const MapOutline outline = OutlineOfMap();
        ASSERT_THAT(outline.rings, SizeIs(1)) << entry.ProjName;
        EXPECT_GT(SignedArea(outline.rings[0]), 0.0) << entry.ProjName;
        for (const PlanePlace& point : outline.rings[0]) {
            const auto place = InverseSelect(point.x, point.y);
            ASSERT_TRUE(place);
            const double off = std::min({std::fabs(place->lat - 70.0), std::fabs(place->lat - 10.0),
                                         std::fabs(place->lon), std::fabs(place->lon - 100.0)});
            EXPECT_LT(off, 1e-7) << entry.ProjName << ": " << place->lat << ", " << place->lon;
        }
        EXPECT_THAT(outline.marks, SizeIs(2 * 9 + 2 * 5)) << entry.ProjName;
        ExpectMarksOnGrid(outline);
    }
}

TEST_F(Outline, NoChordLeavesItsCurve) {
    for (const std::int16_t projNum : {ProjHammer, ProjMollweide, ProjRobinson, ProjEquidistantConic}) {
        StartRectangle(projNum, 90, -60, -170, 170, 10);
        const MapOutline outline = OutlineOfMap();
        const auto& ring = outline.rings[0];
        for (std::size_t i = 0; i < ring.size(); ++i) {
            const PlanePlace& a = ring[i];
            const PlanePlace& b = ring[(i + 1) % ring.size()];
            const double length = std::hypot(b.x - a.x, b.y - a.y);
            // 3e-5 of the map beside the middle of a chord the map begins, or ends.
            const double step = 3e-5 * SizeOfMap();
            const double x = (a.x + b.x) / 2.0;
            const double y = (a.y + b.y) / 2.0;
            const double nx = (b.y - a.y) / length;
            const double ny = (a.x - b.x) / length;
            if (length < 4.0 * step) {
                continue; // in the corner at a pole
            }
            EXPECT_TRUE(PlaceAt(x - nx * step, y - ny * step)) << projNum << " " << i;
            EXPECT_FALSE(PlaceAt(x + nx * step, y + ny * step)) << projNum << " " << i;
        }
    }
}

TEST_F(Outline, ADiscHasItsCircleAndTicksWhereTheGridLeavesIt) {
    for (const ProjectionEntry& entry : Projections) {
        if (entry.family != ProjectionFamily::Azimuthal) {
            continue;
        }
        for (const int lat : {-90, -35, 0, 20, 61, 90}) {
            StartDisc(entry.ProjNum, lat, 15, 50);
            const MapOutline outline = OutlineOfMap();
            ASSERT_THAT(outline.rings, SizeIs(1));
            EXPECT_GT(SignedArea(outline.rings[0]), 0.0);
            for (const PlanePlace& point : outline.rings[0]) {
                EXPECT_NEAR(std::hypot(point.x, point.y), Design.MapXMax, 1e-12);
            }
            ExpectMarksOnGrid(outline);
            if (std::abs(lat) == 90) {
                EXPECT_THAT(outline.marks, SizeIs(8)) << "of the meridians alone, every 45 degrees";
            }
        }
    }
}

TEST_F(Outline, OfADiscOnTheEquatorTheTicksAreCountedByHand) {
    // A circle of 50 degrees about 0 N: the parallels at 30 N, 0 and 30 S meet it twice each; of the
    // meridians every 45 degrees from the central one those at 45 W, 0 and 45 E.
    StartDisc(ProjAzimuthalEqualArea, 0, 15, 50);
    EXPECT_THAT(OutlineOfMap().marks, SizeIs(3 * 2 + 3 * 2));
}

TEST_F(Outline, ADenseGridHasNoTicks) {
    StartRectangle(ProjMercator, 60, -60, 100, -70, 10);
    Design.LonGrid = 0.05;
    EXPECT_THAT(OutlineOfMap().marks, SizeIs(2 * 11));
}

} // namespace
} // namespace quelmont
