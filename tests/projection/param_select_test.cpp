#include "projection/param_select.h"

#include "core/map_design.h"
#include "projection/map_fields.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

namespace quelmont {
namespace {

using testing::DoubleEq;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double Root2 = std::numbers::sqrt2;

class Extent : public FreshProgramTest {
protected:
    static void Rectangle(std::int16_t projNum, double north, double south, double span) {
        SetRectangle(projNum, north, south, span);
        ParamSelect();
    }
    static void Cone(std::int16_t projNum, double north, double south, double span, double p1, double p2) {
        SetRectangle(projNum, north, south, span);
        Design.StdParNorth = p1;
        Design.StdParSouth = p2;
        ParamSelect();
    }
    static void Disc(std::int16_t projNum, double latCentral, double range) {
        SetDisc(projNum, latCentral, range);
        ParamSelect();
    }

    /// Expected to a rounding or two; Pi itself is short by 3.3e-15.
    static void ExpectExtent(double xMin, double xMax, double yMin, double yMax) {
        constexpr double Near = 1e-14;
        EXPECT_NEAR(Design.MapXMin, xMin, Near);
        EXPECT_NEAR(Design.MapXMax, xMax, Near);
        EXPECT_NEAR(Design.MapYMin, yMin, Near);
        EXPECT_NEAR(Design.MapYMax, yMax, Near);
    }

    static AskedBox Failure(const char* description) { return {"Error in ParamSelect", description}; }
};

TEST_F(Extent, BoundsBelongToTheProjectionFromThenOn) {
    Rectangle(ProjMercator, 45.0, -45.0, 180.0);
    EXPECT_EQ(Design.BoundsProjNum, ProjMercator);
    Design.ProjNum = ProjRobinson;
    EXPECT_EQ(Design.BoundsProjNum, ProjMercator) << "a projection that was chosen and no more";
    Disc(ProjOrthographic, 40.0, 90.0);
    EXPECT_EQ(Design.BoundsProjNum, ProjOrthographic);
}

// ---- Rectangles.

TEST_F(Extent, MercatorFromItsFourPoints) {
    Rectangle(ProjMercator, 45.0, -45.0, 180.0);
    ExpectExtent(0.0, Pi, -std::log(1.0 + Root2), std::log(1.0 + Root2));
}

TEST_F(Extent, EquirectangularShrinksByTheTrueLatitude) {
    SetRectangle(ProjEquirectangular, 90.0, -90.0, 360.0);
    Design.StdParNorth = 60.0;
    ParamSelect();
    EXPECT_NEAR(Design.CosStdPar, 0.5, 2e-15);
    ExpectExtent(0.0, Pi, -Pi / 2.0, Pi / 2.0);
}

TEST_F(Extent, CylindricalEqualAreaGrowsInHeight) {
    SetRectangle(ProjCylindricalEqualArea, 90.0, 30.0, 90.0);
    Design.StdParNorth = 60.0;
    ParamSelect();
    ExpectExtent(0.0, Pi / 4.0, 1.0, 2.0);
}

TEST_F(Extent, UtmIsItsBoundariesInMetres) {
    Design.ProjNum = ProjUtm;
    Design.LatNorth = 6200000.0;
    Design.LatSouth = 5600000.0;
    Design.LonZero = 300000.0;
    Design.LonSpan = 800000.0;
    Design.LonCentral = -9.0;
    ParamSelect();
    EXPECT_EQ(Design.MapXMin, 300000.0);
    EXPECT_EQ(Design.MapXMax, 800000.0);
    EXPECT_EQ(Design.MapYMin, 5600000.0);
    EXPECT_EQ(Design.MapYMax, 6200000.0);
}

TEST_F(Extent, RectangleEndsAtItsFourthPoint) {
    Rectangle(ProjEquirectangular, 50.0, 10.0, 70.0);
    EXPECT_EQ(Design.ProjLat, 10.0);
    EXPECT_EQ(Design.ProjLon, 70.0);
}

// ---- Ovals.

TEST_F(Extent, WholeOvals) {
    Rectangle(ProjHammer, 90.0, -90.0, 360.0);
    ExpectExtent(-2.0 * Root2, 2.0 * Root2, -Root2, Root2);
    Rectangle(ProjMollweide, 90.0, -90.0, 360.0);
    ExpectExtent(-2.0 * Root2, 2.0 * Root2, -Root2, Root2);
    Rectangle(ProjInterruptedMollweide, 90.0, -90.0, 360.0);
    ExpectExtent(-2.0 * Root2, 2.0 * Root2, -Root2, Root2);
    Rectangle(ProjRobinson, 90.0, -90.0, 360.0);
    EXPECT_NEAR(Design.MapXMax, 0.8487 * Pi, 1e-15);
    EXPECT_NEAR(Design.MapYMax, 1.3523, 0.0006 * 1.3523) << "within the polynomial's error";
    EXPECT_EQ(Design.MapYMin, -Design.MapYMax);
}

TEST_F(Extent, OvalIsWidestAtTheParallelNearestTheEquator) {
    struct Row {
        double north, south, widest;
    };
    constexpr std::array<Row, 6> rows = {{{50.0, 10.0, 10.0},
                                          {-10.0, -50.0, -10.0},
                                          {30.0, -70.0, 0.0},
                                          {40.0, 0.0, 0.0},
                                          {0.0, -40.0, 0.0},
                                          {90.0, -1.0, 0.0}}};
    for (const std::int16_t projNum : {ProjHammer, ProjRobinson, ProjMollweide, ProjInterruptedMollweide}) {
        for (const Row& row : rows) {
            Rectangle(projNum, row.north, row.south, 120.0);
            const double found = Design.MapXMax;
            EXPECT_EQ(Design.MapXMin, -found);
            ProjectAt(row.widest, 120.0);
            EXPECT_EQ(found, Design.ProjX) << projNum << ": " << row.north << " to " << row.south;
        }
    }
}

/// Two lobes, 120 and 240 degrees wide, of a map that does not reach the equator: each is as wide as
/// its own share of the widest parallel, about a middle that stands where the equator has it.
TEST_F(Extent, LobesOfOneHemisphereFitSideBySide) {
    constexpr double degree = 2.0 * Root2 / 180.0;
    // 2 theta + sin 2 theta = pi sin 30, by halving.
    double low = 0.0;
    double high = 1.0;
    for (int round = 0; round < 60; ++round) {
        const double theta = (low + high) / 2.0;
        (2.0 * theta + std::sin(2.0 * theta) < std::numbers::pi / 2.0 ? low : high) = theta;
    }
    const double narrower = std::cos(low);
    Design.LobeText = {"1", "1"};
    Design.LobeCentral = {0.0, (60.0 - 180.0) * degree, (240.0 - 180.0) * degree,
                          0.0, -60.0 * degree,          120.0 * degree};
    Rectangle(ProjInterruptedMollweide, 60.0, 30.0, 360.0);
    EXPECT_NEAR(Design.MapXMin, (-120.0 - 60.0 * narrower) * degree, 1e-13);
    EXPECT_NEAR(Design.MapXMax, (60.0 + 120.0 * narrower) * degree, 1e-13);
    // In the south 240 degrees come first.
    Rectangle(ProjInterruptedMollweide, -30.0, -60.0, 360.0);
    EXPECT_NEAR(Design.MapXMin, (-60.0 - 120.0 * narrower) * degree, 1e-13);
    EXPECT_NEAR(Design.MapXMax, (120.0 + 60.0 * narrower) * degree, 1e-13);
    // With the equator on the map they fill its whole width.
    Rectangle(ProjInterruptedMollweide, 60.0, -60.0, 360.0);
    EXPECT_NEAR(Design.MapXMin, -180.0 * degree, 1e-13);
    EXPECT_NEAR(Design.MapXMax, 180.0 * degree, 1e-13);
}

/// A parallel of the Hammer bends away from the equator toward the sides: the northern edge of a
/// map is highest at its corners if it lies in the north, and in the middle if it lies in the south.
TEST_F(Extent, HammerTakesTheTopWhereTheEdgeBendsTo) {
    struct Row {
        double north, south, topLon, bottomLon;
    };
    constexpr std::array<Row, 5> rows = {{{60.0, -60.0, 300.0, 300.0},
                                          {60.0, 20.0, 300.0, 150.0},
                                          {-20.0, -60.0, 150.0, 300.0},
                                          {0.0, -60.0, 300.0, 300.0},
                                          {60.0, 0.0, 300.0, 300.0}}};
    for (const Row& row : rows) {
        Rectangle(ProjHammer, row.north, row.south, 300.0);
        const double top = Design.MapYMax;
        const double bottom = Design.MapYMin;
        ProjectAt(row.north, row.topLon);
        EXPECT_EQ(top, Design.ProjY) << row.north << " to " << row.south;
        ProjectAt(row.south, row.bottomLon);
        EXPECT_EQ(bottom, Design.ProjY) << row.north << " to " << row.south;
    }
}

// ---- Discs.

TEST_F(Extent, WholeGlobesHaveTheirHalfWidths) {
    Disc(ProjAzimuthalEquidistant, 40.0, 180.0);
    EXPECT_EQ(Design.MapXMax, Pi);
    ExpectExtent(-Pi, Pi, -Pi, Pi);
    Disc(ProjAzimuthalEqualArea, 40.0, 180.0);
    EXPECT_EQ(Design.MapXMax, 2.0);
    ExpectExtent(-2.0, 2.0, -2.0, 2.0);
}

/// tan c, 2 tan(c/2), sin c, c, 2 sin(c/2).
TEST_F(Extent, DiscsReachTheirRange) {
    for (const double centre : {0.0, 35.0, -35.0, 90.0, -90.0}) {
        const double c = std::numbers::pi / 3.0;
        Disc(ProjGnomonic, centre, 60.0);
        ExpectExtent(-std::tan(c), std::tan(c), -std::tan(c), std::tan(c));
        Disc(ProjStereographic, centre, 60.0);
        EXPECT_NEAR(Design.MapXMax, 2.0 * std::tan(c / 2.0), 1e-14);
        Disc(ProjOrthographic, centre, 60.0);
        EXPECT_NEAR(Design.MapXMax, std::sin(c), 1e-14);
        Disc(ProjAzimuthalEquidistant, centre, 60.0);
        EXPECT_NEAR(Design.MapXMax, c, 1e-14);
        Disc(ProjAzimuthalEqualArea, centre, 60.0);
        ExpectExtent(-1.0, 1.0, -1.0, 1.0);
    }
}

TEST_F(Extent, DiscLooksOverThePoleWhenItMust) {
    Disc(ProjAzimuthalEquidistant, 60.0, 50.0);
    EXPECT_EQ(Design.ProjLat, 70.0);
    EXPECT_EQ(Design.ProjLon, 360.0);
    EXPECT_NEAR(Design.MapXMax, 50.0 * DegToRad, 1e-14);
    Disc(ProjAzimuthalEquidistant, 60.0, 30.0);
    EXPECT_EQ(Design.ProjLat, 90.0);
    EXPECT_EQ(Design.ProjLon, 180.0) << "the pole itself is not beyond it";
}

TEST_F(Extent, RangesUpToTheLastSecondHaveAnExtent) {
    for (const std::int16_t projNum : {ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        for (const double centre : {0.0, 40.0, 90.0, -90.0, -33.25}) {
            Disc(projNum, centre, 647999.0 / 3600.0);
            EXPECT_NEAR(Design.MapXMax, projNum == ProjAzimuthalEquidistant ? Pi : 2.0, 2e-5) << centre;
        }
    }
}

TEST_F(Extent, WholeGlobeOfTheOthersKeepsItsHalfWidth) {
    for (const std::int16_t projNum : {ProjGnomonic, ProjStereographic, ProjOrthographic}) {
        Design.MapXMax = 1.5;
        Disc(projNum, 0.0, 180.0);
        ExpectExtent(-1.5, 1.5, -1.5, 1.5);
    }
}

// ---- The perspective.

TEST_F(Extent, PerspectiveSeesToItsHorizon) {
    SetDisc(ProjVerticalPerspective, 40.0, 60.0);
    Design.VpDistanceKm = 6371.0; // P = 2: the horizon lies 60 degrees away
    ParamSelect();
    EXPECT_EQ(Design.VpP, 2.0);
    EXPECT_NEAR(Design.HorizonCos[3], 0.5, 1e-10);
    EXPECT_LT(Design.HorizonCos[3], 0.5);
    EXPECT_EQ(Design.RangeSec, 60 * 3600);
    EXPECT_NEAR(Design.CosRange, 0.5, 1e-15);
    EXPECT_EQ(Design.GridText[GridTextRange], "060    00    00    E");
    const double half = std::sqrt(1.0 / 3.0);
    ExpectExtent(-half, half, -half, half);
}

TEST_F(Extent, HeightChangesTheRangeWithoutTheUser) {
    SetDisc(ProjVerticalPerspective, 40.0, 60.0);
    Design.GridText[GridTextRange] = "123    00    00";
    Design.VpDistanceKm = 35840.0;
    ParamSelect();
    // acos(6371 / 42211) is 81.319046 degrees, 81 19 08.6.
    EXPECT_EQ(Design.RangeSec, 81 * 3600 + 19 * 60 + 9);
    EXPECT_EQ(Design.GridText[GridTextRange], "081    19    09    E");
}

// ---- What always holds.

TEST_F(Extent, StopReasonIsEmptyAfterwards) {
    for (const int projNum : {1, 6, 12, 17, 26, 29, 5, 0}) {
        SetRectangle(static_cast<std::int16_t>(projNum), 80.0, 10.0, 90.0);
        Design.StdParNorth = 60.0;
        Design.StdParSouth = 20.0;
        Design.VpDistanceKm = 400.0;
        Design.PlotStopReason = StopReason::Escape;
        ParamSelect();
        EXPECT_EQ(Design.PlotStopReason, StopReason::None) << projNum;
    }
}

TEST_F(Extent, UnknownProjectionKeepsTheExtent) {
    Design.MapXMin = 1.0;
    Design.MapXMax = 2.0;
    Design.MapYMin = 3.0;
    Design.MapYMax = 4.0;
    Rectangle(5, 90.0, -90.0, 360.0);
    ExpectExtent(1.0, 2.0, 3.0, 4.0);
}

// ---- By brute force: the extent holds every point of the map, and the map touches it.

class BruteForce : public Extent {
protected:
    /// Projects the map densely and compares its bounds with the extent. Where the extreme is a
    /// point of the interior of an edge, the grid comes as near as the square of its step.
    static void ExpectTight(double tolerance) {
        double xMin = std::numeric_limits<double>::infinity();
        double xMax = -xMin;
        double yMin = xMin;
        double yMax = -xMin;
        const auto visit = [&](double lat, double lon) {
            ProjectAt(lat, lon);
            xMin = std::min(xMin, Design.ProjX);
            xMax = std::max(xMax, Design.ProjX);
            yMin = std::min(yMin, Design.ProjY);
            yMax = std::max(yMax, Design.ProjY);
        };
        constexpr int Steps = 360;
        const double height = Design.LatNorth - Design.LatSouth;
        for (int j = 0; j <= Steps; ++j) {
            const double lon = j == Steps ? Design.LonSpan : Design.LonSpan * j / Steps;
            for (int i = 0; i < Steps; ++i) {
                visit(Design.LatSouth + height * i / Steps, lon);
            }
            visit(Design.LatNorth, lon);
            // The equator, where ovals are widest.
            visit(std::clamp(0.0, Design.LatSouth, Design.LatNorth), lon);
        }
        EXPECT_NEAR(Design.MapXMin, xMin, tolerance);
        EXPECT_NEAR(Design.MapXMax, xMax, tolerance);
        EXPECT_NEAR(Design.MapYMin, yMin, tolerance);
        EXPECT_NEAR(Design.MapYMax, yMax, tolerance);
    }
};

TEST_F(BruteForce, OvalsFitTheirMaps) {
    for (const std::int16_t projNum : {ProjHammer, ProjRobinson, ProjMollweide}) {
        for (const auto& [north, south] :
             {std::pair{90.0, -90.0}, std::pair{60.0, 0.0}, std::pair{0.0, -60.0}, std::pair{50.0, 10.0},
              std::pair{-10.0, -50.0}, std::pair{40.0, -70.0}}) {
            for (const double span : {360.0, 200.0, 20.0}) {
                SCOPED_TRACE(testing::Message()
                             << projNum << ": " << north << " to " << south << ", " << span);
                Rectangle(projNum, north, south, span);
                ExpectTight(1e-12);
            }
        }
    }
}

struct ConeCase {
    double north, south, span, p1, p2;
    bool wide; ///< the map is more than a half-disc
};

/// The half-disc spans 234 degrees for parallels at 70 and 30, 198 for 75 and 55, and between 342
/// and 415 for 60 and 0, by projection.
constexpr std::array<ConeCase, 8> ConeCases = {{{80.0, 20.0, 90.0, 70.0, 30.0, false},
                                                {80.0, 20.0, 200.0, 70.0, 30.0, false},
                                                {80.0, 20.0, 300.0, 70.0, 30.0, true},
                                                {85.0, 45.0, 360.0, 75.0, 55.0, true},
                                                {-20.0, -80.0, 90.0, -30.0, -70.0, false},
                                                {-20.0, -80.0, 300.0, -30.0, -70.0, true},
                                                {-45.0, -85.0, 360.0, -55.0, -75.0, true},
                                                {80.0, -80.0, 300.0, 60.0, 0.0, false}}};

TEST_F(BruteForce, ConesFitTheirMaps) {
    for (const std::int16_t projNum : {ProjEquidistantConic, ProjConformalConic, ProjAlbers}) {
        for (const ConeCase& cone : ConeCases) {
            SCOPED_TRACE(testing::Message()
                         << projNum << ": " << cone.p1 << ", " << cone.p2 << ", " << cone.span);
            Cone(projNum, cone.north, cone.south, cone.span, cone.p1, cone.p2);
            EXPECT_EQ(cone.span > std::fabs(180.0 / Design.ConeConstant), cone.wide);
            const double size = Design.MapXMax - Design.MapXMin;
            // A step of a degree at most: the side of a wide cone is passed by half of it, and a
            // circle falls off by the square of that, 4e-5 of its radius.
            ExpectTight(cone.wide ? 4e-5 * size : 1e-12 * size);
        }
    }
}

TEST_F(BruteForce, WideConesReachTheirSidesExactly) {
    for (const std::int16_t projNum : {ProjEquidistantConic, ProjConformalConic, ProjAlbers}) {
        Cone(projNum, 80.0, 20.0, 300.0, 70.0, 30.0);
        ProjectAt(20.0, Design.LonCentral);
        const double rho = Design.ConicRho0 - Design.ProjY;
        EXPECT_NEAR(Design.MapXMax, rho, 1e-13 * rho);
        EXPECT_NEAR(Design.MapXMin, -rho, 1e-13 * rho);
        Cone(projNum, -20.0, -80.0, 300.0, -30.0, -70.0);
        ProjectAt(-20.0, Design.LonCentral);
        const double southern = Design.ProjY - Design.ConicRho0;
        EXPECT_NEAR(Design.MapXMax, southern, 1e-13 * southern);
        EXPECT_NEAR(Design.MapXMin, -southern, 1e-13 * southern);
    }
}

TEST_F(BruteForce, DiscsHoldWhatLiesInTheirRange) {
    for (const std::int16_t projNum :
         {ProjGnomonic, ProjStereographic, ProjOrthographic, ProjVerticalPerspective,
          ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        for (const double centre : {90.0, 50.0, 0.0, -20.5, -89.0}) {
            SetDisc(projNum, centre, 75.0);
            Design.VpDistanceKm = 20000.0;
            ParamSelect();
            double furthest = 0.0;
            for (double lat = -90.0; lat <= 90.0; lat += 0.5) {
                for (double lon = 0.0; lon <= 360.0; lon += 0.5) {
                    Design.ProjTestMode = TestOnly;
                    ProjectAt(lat, lon);
                    if (Design.PointStatus == PointInRange) {
                        Design.ProjTestMode = TestResume;
                        ProjectAt(lat, lon);
                        furthest = std::max(furthest, std::hypot(Design.ProjX, Design.ProjY));
                    }
                    Design.ProjTestMode = TestNone;
                }
            }
            EXPECT_LE(furthest, Design.MapXMax * (1.0 + 1e-12)) << projNum << ", " << centre;
            // Some point of the grid lies within half a degree of the circle; the gnomonic stretches
            // it by sec^2(75 degrees), 15.
            EXPECT_GE(furthest, Design.MapXMax - 0.5 * DegToRad * (projNum == ProjGnomonic ? 15.0 : 2.0))
                << projNum << ", " << centre;
        }
    }
}

// ---- Failures: each statement for itself.

TEST_F(Extent, EqualParallelsFailTwiceAndTheRestGoesOn) {
    SetRectangle(ProjEquidistantConic, 80.0, 20.0, 90.0);
    Design.StdParNorth = 40.0;
    Design.StdParSouth = 40.0;
    Design.ConeConstant = 0.5;
    Design.ConicG = 100.0;
    Design.MapXMin = 1.0;
    Design.MapXMax = 2.0;
    ParamSelect();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(Failure("Error: Division by zero"), Failure("Error: Division by zero")));
    EXPECT_EQ(Design.ConeConstant, 0.5);
    EXPECT_EQ(Design.ConicG, 100.0);
    EXPECT_DOUBLE_EQ(Design.ConicRho0, 50.0 * DegToRad) << "it is computed from what there is";
    EXPECT_EQ(Design.MapXMin, 1.0) << "no column is for equal parallels";
    EXPECT_EQ(Design.MapXMax, 2.0);
}

TEST_F(Extent, SymmetricConformalConeFailsWhereItDivides) {
    SetRectangle(ProjConformalConic, 60.0, -40.0, 90.0);
    Design.StdParNorth = 30.0;
    Design.StdParSouth = -30.0;
    Design.ConicF = 7.0;
    ParamSelect();
    // F, and the fan of the extent.
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(Failure("Error: Division by zero"), Failure("Error: Division by zero")));
    EXPECT_EQ(Design.ConeConstant, 0.0);
    EXPECT_EQ(Design.ConicF, 7.0);
    EXPECT_EQ(Design.ConicRho0, 7.0) << "the kept F over a power of 0";
}

TEST_F(Extent, SymmetricAlbersFailsWhereItDivides) {
    SetRectangle(ProjAlbers, 60.0, -40.0, 90.0);
    Design.StdParNorth = 30.0;
    Design.StdParSouth = -30.0;
    Design.ConicRho0 = 3.0;
    ParamSelect();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(Failure("Error: Division by zero"), Failure("Error: Division by zero")));
    EXPECT_EQ(Design.ConeConstant, 0.0);
    EXPECT_DOUBLE_EQ(Design.ConicC, 0.75) << "cos^2 30";
    EXPECT_EQ(Design.ConicRho0, 3.0);
}

TEST_F(Extent, PerspectiveFromTheCentreOfTheEarthFailsStepByStep) {
    SetDisc(ProjVerticalPerspective, 40.0, 60.0);
    Design.VpDistanceKm = -6371.0;
    Design.MapXMax = 1.25;
    ParamSelect();
    EXPECT_EQ(Design.VpP, 0.0);
    EXPECT_DOUBLE_EQ(Design.HorizonCos[3], 1e10);
    // The reciprocal of P, the tangent of the horizon, and the root of the extent.
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(Failure("Error: Division by zero"), Failure("Error: Division by zero"),
                            Failure("Error: Invalid procedure call or argument")));
    ExpectExtent(-1.25, 1.25, -1.25, 1.25);
}

TEST_F(Extent, PointThatCannotBeProjectedGivesTheCoordinateBeforeIt) {
    SetRectangle(ProjMercator, 45.0, -90.0, 180.0);
    Design.ProjY = -9.0;
    ParamSelect();
    // South is projected three times, and fails each time.
    const AskedBox failure{"Error in ProjectSelect", "Error: Invalid procedure call or argument"};
    EXPECT_THAT(machine.boxes.asked, ElementsAre(failure, failure, failure));
    EXPECT_EQ(Design.MapYMin, -9.0);
    EXPECT_NEAR(Design.MapYMax, std::log(1.0 + Root2), 1e-14);
    EXPECT_NEAR(Design.MapXMax, Pi, 1e-14);
}

TEST_F(Extent, NoHostileParallelsLeaveAnythingThatIsNotFinite) {
    for (const std::int16_t projNum : {ProjEquirectangular, ProjCylindricalEqualArea, ProjEquidistantConic,
                                       ProjConformalConic, ProjAlbers}) {
        for (const double p1 : {90.0, -90.0, 0.0, 45.0, 1e-300, 89.999999999999986, 180.0, 270.0}) {
            for (const double p2 : {90.0, -90.0, 0.0, -45.0, 45.0, -1e-300, 180.0}) {
                for (const double south : {-90.0, 0.0, 89.0}) {
                    Cone(projNum, 90.0, south, 360.0, p1, p2);
                    for (const double value :
                         {Design.MapXMin, Design.MapXMax, Design.MapYMin, Design.MapYMax, Design.ConeConstant,
                          Design.ConicG, Design.ConicF, Design.ConicC, Design.ConicRho0, Design.CosStdPar}) {
                        ASSERT_TRUE(std::isfinite(value)) << projNum << ": " << p1 << ", " << p2;
                    }
                }
            }
        }
    }
}

TEST_F(Extent, NoHostileHeightLeavesAnythingThatIsNotFinite) {
    for (const double height : {0.0, -1.0, -6371.0, -6371.0 - 6.371e-7, -1e5, 1e300, 1.7e308, 1e-300}) {
        SetDisc(ProjVerticalPerspective, 40.0, 60.0);
        Design.VpDistanceKm = height;
        ParamSelect();
        for (const double value : {Design.MapXMin, Design.MapXMax, Design.MapYMin, Design.MapYMax, Design.VpP,
                                   Design.HorizonCos[3], Design.CosRange}) {
            ASSERT_TRUE(std::isfinite(value)) << height;
        }
    }
}

} // namespace
} // namespace quelmont
