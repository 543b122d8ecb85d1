#include "core/map_design.h"
#include "projection/inverse_place.h"
#include "projection/map_fields.h"
#include "projection/map_sweep.h"
#include "projection/param_select.h"
#include "projection/projection_table.h"
#include "projection/reference_projection.h"
#include "projection/round_trip.h"
#include "projection/utm.h"
#include "support/fresh_program.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <cmath>
#include <limits>
#include <numbers>
#include <random>

/// The place under a point of the map.

namespace quelmont {
namespace {

using PlaceOnMap = FreshProgramTest;

// ---- Bounds and true degrees.

TEST_F(PlaceOnMap, LongitudesAreTrueOnes) {
    for (const double west : {-180.0, -170.0, 0.0, 20.0, 175.0}) {
        SetSweptMap(ProjEquirectangular, {80.0, -80.0, 40.0});
        Design.LonWest = west;
        for (const double relative : {0.0, 4.5, 20.0, 39.0, 40.0}) {
            const ReferencePlace point = *ForwardOf({10.0, relative});
            const auto place = PlaceAt(point.x, point.y);
            ASSERT_TRUE(place) << west << " + " << relative;
            EXPECT_NEAR(place->lat, 10.0, 1e-12);
            const double expected = west + relative > 180.0 ? west + relative - 360.0 : west + relative;
            EXPECT_NEAR(place->lon, expected, 1e-12);
        }
    }
}

TEST_F(PlaceOnMap, BothEdgesOfAWholeWorldHaveTheirOwnAntimeridian) {
    SetSweptMap(ProjRobinson, {});
    Design.LonWest = -180.0;
    EXPECT_NEAR(PlaceAt(Design.MapXMin, 0.0)->lon, -180.0, 1e-12);
    EXPECT_NEAR(PlaceAt(Design.MapXMax, 0.0)->lon, 180.0, 1e-12);
}

TEST_F(PlaceOnMap, NothingBeyondTheBounds) {
    for (const ProjectionEntry& entry : Projections) {
        if (entry.family == ProjectionFamily::Azimuthal || entry.family == ProjectionFamily::MetricGrid ||
            entry.ProjNum == ProjInterruptedMollweide) {
            continue;
        }
        SetSweptMap(entry.ProjNum, {60.0, 10.0, 75.0, 50.0, 20.0});
        Design.LonWest = -30.0;
        const auto at = [](double lat, double lon) {
            const ReferencePlace point = *ForwardOf({lat, lon});
            return PlaceAt(point.x, point.y);
        };
        SCOPED_TRACE(entry.ProjName);
        for (const double part : {0.0, 0.25, 1.0}) {
            EXPECT_TRUE(at(60.0, 75.0 * part));
            EXPECT_TRUE(at(10.0, 75.0 * part));
            EXPECT_FALSE(at(60.0 + 1e-6, 75.0 * part));
            EXPECT_FALSE(at(10.0 - 1e-6, 75.0 * part));
            EXPECT_TRUE(at(10.0 + 50.0 * part, 0.0));
            EXPECT_TRUE(at(10.0 + 50.0 * part, 75.0));
            EXPECT_FALSE(at(10.0 + 50.0 * part, -1e-6));
            EXPECT_FALSE(at(10.0 + 50.0 * part, 75.0 + 1e-6));
        }
    }
}

TEST_F(PlaceOnMap, NothingBeyondTheRange) {
    for (const ProjectionEntry& entry : Projections) {
        if (!IsAzimuthal(entry.ProjNum) || entry.ProjNum == ProjVerticalPerspective) {
            continue;
        }
        for (const double centre : {0.0, 40.0, -85.0, 90.0}) {
            SetDisc(entry.ProjNum, centre, 30.0);
            ParamSelect();
            Design.LonWest = 150.0;
            for (double around = 0.0; around < 6.28; around += 0.3) {
                SCOPED_TRACE(testing::Message() << entry.ProjName << " about " << centre << ", " << around);
                const auto at = [&](double part) {
                    return PlaceAt(Design.MapXMax * part * std::sin(around),
                                   Design.MapXMax * part * std::cos(around));
                };
                EXPECT_FALSE(at(1.000001));
                const auto rim = at(1.0);
                ASSERT_TRUE(rim);
                // 150 E and 180 degrees more is the centre's 30 W.
                EXPECT_NEAR(DistanceDegrees({centre, -30.0}, {rim->lat, rim->lon}), 30.0, 1e-9);
            }
        }
    }
}

TEST_F(PlaceOnMap, PerspectiveEndsAtItsHorizon) {
    for (const double height : {1.0, 400.0, 35840.0, 99999999.0}) {
        MapOfSweep map;
        map.centre = 51.0;
        map.height = height;
        SetSweptMap(ProjVerticalPerspective, map);
        Design.LonWest = -180.0;
        const auto rim = PlaceAt(0.0, -Design.MapXMax);
        ASSERT_TRUE(rim);
        const double horizon = std::acos(6371.0 / (6371.0 + height)) * 180.0 / std::numbers::pi;
        EXPECT_NEAR(rim->lat, 51.0 - horizon, 1e-5) << height;
        EXPECT_FALSE(PlaceAt(0.0, -Design.MapXMax * 1.00001)) << height;
    }
}

TEST_F(PlaceOnMap, NothingBeforeTheNumbersAreThoseOfTheProjection) {
    SetSweptMap(ProjMollweide, {});
    EXPECT_TRUE(PlaceAt(0.1, 0.1));
    Design.ProjNum = ProjRobinson;
    EXPECT_FALSE(PlaceAt(0.1, 0.1));
    Design.ProjNum = ProjMollweide;
    Design.BoundsProjNum = 0;
    EXPECT_FALSE(PlaceAt(0.1, 0.1));
}

// ---- UTM.

class PlaceOnUtm : public FreshProgramTest {
protected:
    PlaceOnUtm() {
        Design.ProjNum = ProjUtm;
        Design.UtmText = {"009    00    00    W", "00    00    00    N", "0500000", "00000000", "0.9996"};
        Design.SpheroidName = "Clarke 1866";
        CalcUtmZone();
        Design.LatSouth = 5600000.0;
        Design.LatNorth = 6200000.0;
        Design.LonZero = 300000.0;
        Design.LonSpan = 800000.0;
        ParamSelect();
    }
};

TEST_F(PlaceOnUtm, MetresHaveTrueDegrees) {
    Design.ProjLat = 52.5;
    Design.ProjLon = -7.25;
    UtmForward();
    const auto place = PlaceAt(Design.ProjLon, Design.ProjLat);
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->lat, 52.5, 1e-9);
    EXPECT_NEAR(place->lon, -7.25, 1e-9);
}

TEST_F(PlaceOnUtm, NothingBeyondTheBounds) {
    for (const double easting : {300000.0, 512345.6, 800000.0}) {
        EXPECT_TRUE(PlaceAt(easting, 5600000.0));
        EXPECT_TRUE(PlaceAt(easting, 6200000.0));
        EXPECT_FALSE(PlaceAt(easting, 5599999.999));
        EXPECT_FALSE(PlaceAt(easting, 6200000.001));
    }
    EXPECT_FALSE(PlaceAt(299999.999, 6000000.0));
    EXPECT_FALSE(PlaceAt(800000.001, 6000000.0));
}

// ---- Lobes.

/// A lobe in true degrees, its middle at that many degrees of the equator from the middle of the map.
struct Lobe {
    std::size_t number;
    double west, east, middle;
    int hemisphere;
};

/// From 20 E all the way round: cuts at 100 W and 0 in the north, 140 E and 70 W in the south.
constexpr std::array<Lobe, 6> DefaultLobes = {{{1, 20.0, 260.0, -60.0, 1},
                                               {2, 260.0, 360.0, 110.0, 1},
                                               {3, 360.0, 380.0, 170.0, 1},
                                               {5, 20.0, 140.0, -120.0, -1},
                                               {6, 140.0, 290.0, 15.0, -1},
                                               {7, 290.0, 380.0, 135.0, -1}}};

class PlaceOnLobes : public FreshProgramTest {
protected:
    PlaceOnLobes() {
        SetSweptMap(ProjInterruptedMollweide, {});
        Design.LobeText[LobeTextCountNorth] = "2";
        Design.LobeText[LobeTextCountSouth] = "2";
        Design.LobeLonDeg = {20.0, -100.0, 0.0, 20.0, 20.0, 140.0, -70.0, 20.0};
        for (const Lobe& lobe : DefaultLobes) {
            Design.LobeCentral[lobe.number] = X(lobe.middle);
        }
        Bound("90    00    00    N", "90    00    00    S");
    }

    static void Bound(const char* north, const char* south) {
        Design.GridText[GridTextNorth] = north;
        Design.GridText[GridTextSouth] = south;
    }

    /// Degrees of the equator in earth radii.
    static double X(double degrees) { return degrees * std::sqrt(2.0) / 90.0; }

    /// Of a point so many degrees east of the middle of a lobe, by PROJ.
    ReferencePlace PointOf(const Lobe& lobe, double lat, double east) const {
        const ReferencePlace point = *mollweide.Forward(lat, east);
        return {point.x + X(lobe.middle), point.y};
    }

    ReferenceProjection mollweide{Definition("moll")};
};

TEST_F(PlaceOnLobes, EveryLobeHasItsOwnPlaces) {
    for (const Lobe& lobe : DefaultLobes) {
        const double half = (lobe.east - lobe.west) / 2.0;
        for (double height = 0.5; height <= 89.5; height += 1.0) {
            for (const double part : {-1.0, -0.999, -0.5, 0.0, 0.3, 0.999, 1.0}) {
                const double lat = height * lobe.hemisphere;
                SCOPED_TRACE(testing::Message() << lobe.number << ": " << lat << ", " << part);
                // A rounding inside of the cut.
                const ReferencePlace point = PointOf(lobe, lat, half * part * (1.0 - 1e-12));
                const auto place = PlaceAt(point.x, point.y);
                ASSERT_TRUE(place);
                ASSERT_LE(std::fabs(place->lon), 180.0);
                const double expected = lobe.west + half + half * part;
                ASSERT_LE(DistanceDegrees({place->lat, place->lon}, {lat, expected}), 1e-9);
            }
        }
    }
}

TEST_F(PlaceOnLobes, GapsBetweenLobesHaveNone) {
    for (const Lobe& lobe : DefaultLobes) {
        const double half = (lobe.east - lobe.west) / 2.0;
        for (const double height : {1.0, 30.0, 60.0, 89.0}) {
            const double lat = height * lobe.hemisphere;
            const ReferencePlace east = PointOf(lobe, lat, half);
            const ReferencePlace west = PointOf(lobe, lat, -half);
            EXPECT_FALSE(PlaceAt(east.x + 1e-7, east.y)) << lobe.number << " at " << lat;
            EXPECT_FALSE(PlaceAt(west.x - 1e-7, west.y)) << lobe.number << " at " << lat;
        }
    }
}

TEST_F(PlaceOnLobes, EachLobeEndsInItsPole) {
    for (const Lobe& lobe : DefaultLobes) {
        const auto pole = PlaceAt(X(lobe.middle), lobe.hemisphere * std::sqrt(2.0));
        ASSERT_TRUE(pole) << lobe.number;
        EXPECT_NEAR(pole->lat, 90.0 * lobe.hemisphere, 1e-6);
        EXPECT_FALSE(PlaceAt(X(lobe.middle) + 1e-6, lobe.hemisphere * std::sqrt(2.0)));
    }
}

/// The lobes lie side by side along the equator, which both hemispheres have.
TEST_F(PlaceOnLobes, EquatorHasNoGap) {
    for (double degrees = -180.0; degrees <= 180.0; degrees += 0.5) {
        for (const double y : {0.0, 1e-13, -1e-13}) {
            const auto place = PlaceAt(X(degrees), y);
            ASSERT_TRUE(place) << degrees;
            EXPECT_LE(DistanceDegrees({place->lat, place->lon}, {0.0, 200.0 + degrees}), 1e-9) << degrees;
        }
    }
    EXPECT_FALSE(PlaceAt(X(180.0) + 1e-9, 0.0));
    EXPECT_FALSE(PlaceAt(X(-180.0) - 1e-9, 0.0));
}

/// At 30 N the cut at 100 W is a wide gap, at 30 S nothing is cut there.
TEST_F(PlaceOnLobes, HemispheresAreCutForThemselves) {
    const double x = X(60.0); // 100 W on the equator, which is 260 E
    EXPECT_FALSE(PlaceAt(x, 0.7));
    ASSERT_TRUE(PlaceAt(x, -0.7));
    EXPECT_LT(PlaceAt(x, -0.7)->lat, -25.0);
}

TEST_F(PlaceOnLobes, BoundsCutTheLobes) {
    Bound("60    00    00    N", "15    00    00    S");
    const ReferencePlace north = PointOf(DefaultLobes[0], 60.0, 10.0);
    EXPECT_TRUE(PlaceAt(north.x, north.y));
    EXPECT_FALSE(PlaceAt(north.x, north.y + 1e-7));
    const ReferencePlace south = PointOf(DefaultLobes[4], -15.0, 10.0);
    EXPECT_TRUE(PlaceAt(south.x, south.y));
    EXPECT_FALSE(PlaceAt(south.x, south.y - 1e-7));
}

TEST_F(PlaceOnLobes, HemisphereThatTheMapDoesNotHoldHasNone) {
    Bound("60    00    00    N", "10    00    00    N");
    const double x = X(DefaultLobes[0].middle);
    EXPECT_TRUE(PlaceAt(x, 0.8));
    EXPECT_FALSE(PlaceAt(x, 0.1));
    EXPECT_FALSE(PlaceAt(x, 0.0));
    EXPECT_FALSE(PlaceAt(x, -0.8));
    Bound("00    00    00    N", "60    00    00    S");
    const auto equator = PlaceAt(x, 0.0);
    ASSERT_TRUE(equator);
    EXPECT_FALSE(PlaceAt(x, 0.1));
}

TEST_F(PlaceOnLobes, OneLobeWithoutInterruptions) {
    Design.LobeText[LobeTextCountNorth] = "0";
    Design.LobeText[LobeTextCountSouth] = "0";
    Design.LobeLonDeg = {-180.0, 180.0, -180.0, 180.0};
    Design.LobeCentral = {};
    const ReferencePlace point = *mollweide.Forward(-37.0, 170.0);
    const auto place = PlaceAt(point.x, point.y);
    ASSERT_TRUE(place);
    EXPECT_NEAR(place->lat, -37.0, 1e-9);
    EXPECT_NEAR(place->lon, 170.0, 1e-9);
}

/// Equal boundaries are a whole turn.
TEST_F(PlaceOnLobes, OneLobeAllTheWayRound) {
    Design.LobeText[LobeTextCountNorth] = "0";
    Design.LobeText[LobeTextCountSouth] = "0";
    Design.LobeLonDeg = {20.0, 20.0, 20.0, 20.0};
    Design.LobeCentral = {};
    for (const double lat : {40.0, -40.0}) {
        const ReferencePlace point = *mollweide.Forward(lat, 170.0);
        const auto place = PlaceAt(point.x, point.y);
        ASSERT_TRUE(place);
        EXPECT_NEAR(place->lat, lat, 1e-9);
        EXPECT_NEAR(place->lon, 10.0, 1e-9) << "20 + 180 + 170 degrees";
    }
}

TEST_F(PlaceOnLobes, NothingForACountThatIsNone) {
    Design.LobeText[LobeTextCountNorth] = "4";
    EXPECT_FALSE(PlaceAt(0.1, 0.1));
    EXPECT_TRUE(machine.boxes.asked.empty());
}

// ---- Any numbers.

TEST_F(PlaceOnMap, AnyBitsGiveAPlaceOnTheGlobeOrNothing) {
    std::mt19937_64 random(44);
    for (const ProjectionEntry& entry : Projections) {
        if (entry.family == ProjectionFamily::MetricGrid) {
            continue;
        }
        SetSweptMap(entry.ProjNum, {80.0, -60.0, 300.0, 50.0, 20.0, 40.0, 400.0});
        Design.LonWest = -20.0;
        for (const double bad : {std::numeric_limits<double>::quiet_NaN(),
                                 std::numeric_limits<double>::infinity(), 1e300, -1e300}) {
            EXPECT_FALSE(PlaceAt(bad, 0.0)) << entry.ProjName;
            EXPECT_FALSE(PlaceAt(0.0, bad)) << entry.ProjName;
        }
        for (int i = 0; i < 10000; ++i) {
            const auto place = PlaceAt(std::bit_cast<double>(random()), std::bit_cast<double>(random()));
            if (place) {
                ASSERT_LE(std::fabs(place->lat), 90.0) << entry.ProjName;
                ASSERT_LE(std::fabs(place->lon), 180.0) << entry.ProjName;
            }
        }
    }
    EXPECT_TRUE(machine.boxes.asked.empty());
}

} // namespace
} // namespace quelmont
