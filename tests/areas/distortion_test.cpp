#include "areas/distortion.h"

#include "areas/area_frame.h"
#include "areas/filled_map.h"
#include "core/number_text.h"
#include "graticule/lobes.h"
#include "projection/map_sweep.h"
#include "projection/projection_table.h"
#include "projection/reference_projection.h"
#include "projection/utm.h"
#include "reports/dist_err_select.h"
#include "reports/reports_state.h"

#include <gtest/gtest.h>
#include <proj.h>

#include <cmath>
#include <memory>
#include <string>
#include <tuple>
#include <vector>

namespace quelmont {
namespace {

/// Factors of the PROJ library, which takes its derivatives on its own.
class ReferenceFactors {
public:
    explicit ReferenceFactors(const std::string& definition)
        : context(proj_context_create(), proj_context_destroy),
          operation(proj_create(context.get(), definition.c_str()), proj_destroy) {
        EXPECT_NE(operation, nullptr) << definition;
    }
    PJ_FACTORS At(double lat, double lon) const {
        return proj_factors(operation.get(), proj_coord(proj_torad(lon), proj_torad(lat), 0.0, 0.0));
    }

private:
    std::unique_ptr<PJ_CONTEXT, decltype(&proj_context_destroy)> context;
    std::unique_ptr<PJ, decltype(&proj_destroy)> operation;
};

/// Compares; nothing was compared where PROJ has no factors, or so large ones that its differences, whose
/// steps are 1e-5 radians, have lost their digits: beside an antipode and a horizon at infinity.
bool ExpectSame(const Distortion& distortion, const PJ_FACTORS& factors) {
    constexpr double largest = 20.0;
    if (!(factors.areal_scale > 0.0) || !(factors.meridional_scale < largest) ||
        !(factors.parallel_scale < largest)) {
        return false;
    }
    constexpr double tolerance = 1e-5;
    EXPECT_NEAR(distortion.meridian / factors.meridional_scale, 1.0, tolerance);
    EXPECT_NEAR(distortion.parallel / factors.parallel_scale, 1.0, tolerance);
    EXPECT_NEAR(distortion.area / factors.areal_scale, 1.0, tolerance);
    // PROJ takes the axes of the ellipse from a difference of squares: half of its digits are left.
    EXPECT_NEAR(distortion.angle, proj_todeg(factors.angular_distortion), 0.02);
    return true;
}

// ---- Against PROJ.

class DistortionOf : public FreshProgramTest, public testing::WithParamInterface<SweptProjection> {};

TEST_P(DistortionOf, FactorsAreThoseOfAnIndependentLibrary) {
    const SweptProjection& swept = GetParam();
    int compared = 0;
    for (const MapOfSweep& map : swept.maps) {
        SetSweptMap(swept.projNum, map);
        const ReferenceFactors reference(swept.definition(map));
        const bool disc = IsAzimuthal(swept.projNum);
        for (double lat = -87.3; lat < 88.0; lat += 7.7) {
            for (double lon = -170.5; lon < 171.0; lon += 31.0) {
                if (!disc && (lat < map.south - 1.0 || lat > map.north + 1.0)) {
                    continue;
                }
                SCOPED_TRACE(swept.definition(map) + " at " + PlainNumber(lat) + ", " + PlainNumber(lon));
                const auto distortion = DistortionAt(lat, Design.LonCentral + lon);
                if (distortion && ExpectSame(*distortion, reference.At(lat, lon))) {
                    ++compared;
                }
            }
        }
    }
    EXPECT_GT(compared, 100);
}

INSTANTIATE_TEST_SUITE_P(Every, DistortionOf, testing::ValuesIn(SweptProjections()),
                         [](const auto& swept) { return std::string(swept.param.name); });

/// Designs of command lines.
class DistortionOfMap : public FilledMap {
protected:
    DistortionOfMap() { WriteMap("point.prn", "-1 0 0\n"); }

    /// The scale errors of the reports at a place.
    struct Told {
        double meridian, parallel, area;
    };
    static Told ToldAt(double lat, double lon) {
        ReportsNow.ScaleErrLat = lat;
        ReportsNow.ScaleErrLon = lon;
        ReportsNow.ScaleErrIndex = 1;
        EXPECT_TRUE(DistErrSelect());
        return {ValueOf(ReportsNow.ScaleErrMeridian[1]), ValueOf(ReportsNow.ScaleErrParallel[1]),
                ValueOf(ReportsNow.ScaleErrArea[1])};
    }
    static void ExpectTold(const Told& told, double lat, double lon) {
        SCOPED_TRACE(PlainNumber(lat) + ", " + PlainNumber(lon));
        const auto distortion = DistortionAt(lat, lon);
        ASSERT_TRUE(distortion);
        constexpr double digits = 6e-5; // five are told
        EXPECT_NEAR(distortion->meridian / told.meridian, 1.0, digits);
        EXPECT_NEAR(distortion->parallel / told.parallel, 1.0, digits);
        EXPECT_NEAR(distortion->area / told.area, 1.0, digits);
    }
};

TEST_F(DistortionOfMap, FactorsOfAZoneAreThoseOfATransverseMercatorOnItsSpheroid) {
    ASSERT_TRUE(Take({"--projection", "utm", "--spheroid", "WGS84 1984", "--utm-central-lon", "9E"}));
    const ReferenceFactors reference("+proj=tmerc +ellps=WGS84 +lon_0=9 +k=0.9996 +x_0=500000");
    for (const double lat : {-60.0, -12.5, 0.0, 3.0, 45.0, 79.0}) {
        for (const double lon : {6.0, 7.25, 9.0, 11.5}) {
            const auto distortion = DistortionAt(lat, lon);
            ASSERT_TRUE(distortion);
            EXPECT_TRUE(ExpectSame(*distortion, reference.At(lat, lon)));
        }
    }
}

TEST_F(DistortionOfMap, FactorsOfTheRobinsonAreTheScaleErrorsOfItsReport) {
    ASSERT_TRUE(Take({"--projection", "robinson"}));
    // Between the table's latitudes the polynomials have a slope from either side.
    for (double lat = -88.0; lat < 89.0; lat += 5.75) {
        for (double lon = 3.0; lon < 180.0; lon += 22.0) {
            ExpectTold(ToldAt(lat, Design.LonCentral + lon), lat, Design.LonCentral + lon);
        }
    }
}

TEST_F(DistortionOfMap, FactorsAreTheScaleErrorsOfReportsWhereTheseAreTrueScales) {
    for (const char* projection :
         {"equirectangular", "cylindrical equal-area", "hammer equal-area", "mollweide equal-area",
          "equidistant conic", "conformal conic", "albers"}) {
        SCOPED_TRACE(projection);
        ASSERT_TRUE(Take({"--projection", projection, "--north", "70N", "--south", "10N", "--west", "60W",
                          "--east", "90E", "--lat-grid", "10", "--lon-grid", "10"}));
        for (const double lat : {12.0, 35.5, 69.0}) {
            for (const double lon : {10.0, 75.0, 140.0}) {
                ExpectTold(ToldAt(lat, lon), lat, lon);
            }
        }
    }
    // North and south of the centre: elsewhere the report has the slope along one axis of the map alone.
    for (const char* projection : {"gnomonic", "stereographic", "orthographic", "vertical perspective",
                                   "azimuthal equidistant", "azimuthal equal-area"}) {
        SCOPED_TRACE(projection);
        ASSERT_TRUE(Take({"--projection", projection, "--central-lat", "20N", "--central-lon", "30E"}));
        for (const double lat : {-11.0, 20.5, 55.0}) {
            ExpectTold(ToldAt(lat, Design.LonMiddle), lat, Design.LonCentral);
        }
    }
}

// ---- By the properties of projections.

TEST_F(DistortionOfMap, AreasAreTrueOnEqualAreaMapsAndAnglesOnConformalOnes) {
    for (const int projNum : {12, 40, 41, 8, 31}) {
        SCOPED_TRACE(projNum);
        ASSERT_TRUE(Take({"--projection", std::to_string(projNum)}));
        for (double lat = -85.0; lat < 86.0; lat += 10.0) {
            for (const double lon : {-80.0, 0.0, 33.3}) {
                if (const auto distortion = DistortionAt(lat, Design.LonCentral + lon)) {
                    EXPECT_NEAR(distortion->area, 1.0, 1e-8) << lat << ' ' << lon;
                }
            }
        }
    }
    for (const int projNum : {1, 7, 27}) {
        SCOPED_TRACE(projNum);
        ASSERT_TRUE(Take({"--projection", std::to_string(projNum)}));
        for (double lat = -75.0; lat < 76.0; lat += 10.0) {
            for (const double lon : {-80.0, 0.0, 33.3}) {
                if (const auto distortion = DistortionAt(lat, Design.LonCentral + lon)) {
                    EXPECT_NEAR(distortion->angle, 0.0, 1e-6) << lat << ' ' << lon;
                }
            }
        }
    }
}

TEST_F(DistortionOfMap, AnglesOfAPlainCylinderAreThoseOfArithmetic) {
    ASSERT_TRUE(Take({"--projection", "equirectangular", "--std-north", "0N"}));
    // h = 1 and k = 1 / cos 60 = 2: sin (omega / 2) = 1 / 3.
    const auto distortion = DistortionAt(60.0, 100.0);
    ASSERT_TRUE(distortion);
    EXPECT_NEAR(distortion->parallel, 2.0, 1e-8);
    EXPECT_NEAR(distortion->area, 2.0, 1e-8);
    EXPECT_NEAR(distortion->angle, 38.9424412689816, 1e-6);
}

TEST_F(DistortionOfMap, EachLobeHasTheDistortionAboutItsOwnMeridian) {
    ASSERT_TRUE(Take({"--projection", "interrupted mollweide equal-area", "--west", "180", "--east", "180",
                      "--lobes-north", "40W", "--lobes-south", "100W,20W,80E"}));
    const ReferenceFactors reference("+proj=moll +R=1");
    const auto expectAt = [&](double x, double y, double lat, double fromMiddle) {
        SCOPED_TRACE(PlainNumber(x) + ", " + PlainNumber(y));
        const auto distortion = DistortionOfPoint(x, y);
        ASSERT_TRUE(distortion);
        EXPECT_TRUE(ExpectSame(*distortion, reference.At(lat, fromMiddle)));
    };
    // The western northern lobe goes from 180 to 40 W, the eastern one from there to 180 E.
    const ReferenceProjection mollweide(Definition("moll"));
    for (const auto& [lobe, lat, lon] : {std::tuple{1, 50.0, -30.0}, {1, 20.0, 60.0}, {2, 70.0, 100.0}}) {
        const auto place = mollweide.Forward(lat, lon);
        ASSERT_TRUE(place);
        expectAt(place->x + Design.LobeCentral[static_cast<std::size_t>(lobe)], place->y, lat, lon);
    }
}

TEST_F(DistortionOfMap, PlacesOfThePlaneHaveTheDistortionOfTheirPlacesOnTheGlobe) {
    for (const ProjectionEntry& entry : Projections) {
        if (entry.ProjNum == ProjUtm || entry.ProjNum == ProjInterruptedMollweide) {
            continue;
        }
        SCOPED_TRACE(entry.ProjNum);
        ASSERT_TRUE(Take({"--projection", std::to_string(entry.ProjNum)}));
        Design.ProjTestMode = TestNone;
        Design.ProjLat = Design.LatCentral + 11.0;
        Design.ProjLon = Design.LonCentral + 23.0;
        const auto expected = DistortionAt(Design.LatCentral + 11.0, Design.LonCentral + 23.0);
        PlanePoint point;
        ASSERT_TRUE(ProjectPlace(Design.LatCentral + 11.0, Design.LonCentral + 23.0, point));
        const auto distortion = DistortionOfPoint(point.x, point.y);
        ASSERT_TRUE(expected && distortion);
        EXPECT_NEAR(distortion->area, expected->area, 1e-8);
        EXPECT_NEAR(distortion->angle, expected->angle, 1e-6);
    }
}

TEST_F(DistortionOfMap, NothingIsKnownOffTheMapAtPolesAndOfNumbersThatAreNone) {
    ASSERT_TRUE(Take({"--projection", "orthographic"}));
    EXPECT_FALSE(DistortionOfPoint(1.2, 0.0)) << "beyond the horizon";
    EXPECT_FALSE(DistortionOfPoint(std::nan(""), 0.0));
    EXPECT_FALSE(DistortionOfPoint(INFINITY, -INFINITY));
    ASSERT_TRUE(Take({"--projection", "robinson"}));
    EXPECT_FALSE(DistortionAt(90.0, 10.0));
    EXPECT_FALSE(DistortionAt(-90.0, 10.0));
    EXPECT_FALSE(DistortionAt(1e300, 10.0));
    ASSERT_TRUE(Take({"--projection", "mercator"}));
    EXPECT_FALSE(DistortionOfPoint(0.0, 1e300));
}

TEST_F(DistortionOfMap, AskingLeavesNoTraceInTheDesign) {
    ASSERT_TRUE(Take({"--projection", "interrupted mollweide equal-area"}));
    Design.ProjX = 12.0;
    Design.ProjLat = 34.0;
    Design.LobeOffsetX = 0.5;
    const double north = Design.LatNorth;
    const double west = Design.LonWest;
    EXPECT_TRUE(DistortionOfPoint(0.1, 0.4));
    EXPECT_EQ(Design.ProjX, 12.0);
    EXPECT_EQ(Design.ProjLat, 34.0);
    EXPECT_EQ(Design.LobeOffsetX, 0.5);
    EXPECT_EQ(Design.LatNorth, north);
    EXPECT_EQ(Design.LonWest, west);
}

} // namespace
} // namespace quelmont
