#include "surround/scale_bar_place.h"

#include "core/map_design.h"
#include "graticule/grid_fixture.h"
#include "graticule/grid_texts.h"
#include "projection/projection_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <proj.h>

#include <cmath>
#include <map>
#include <memory>
#include <numbers>
#include <string>

/// Where a scale bar is true, and the scale there: held against the scale factors of the PROJ library and
/// against arithmetic by hand.

namespace quelmont {
namespace {

using testing::HasSubstr;

constexpr double EarthKm = 6371.0;
constexpr double Degree = std::numbers::pi / 180.0;

/// PROJ's scale along the parallel at a place, degrees from the central meridian.
double ReferenceScale(const std::string& definition, double lat, double lon) {
    const std::unique_ptr<PJ_CONTEXT, decltype(&proj_context_destroy)> context(proj_context_create(),
                                                                               proj_context_destroy);
    const std::unique_ptr<PJ, decltype(&proj_destroy)> operation(
        proj_create(context.get(), definition.c_str()), proj_destroy);
    EXPECT_NE(operation, nullptr) << definition;
    return proj_factors(operation.get(), proj_coord(lon * Degree, lat * Degree, 0.0, 0.0)).parallel_scale;
}

std::string Argument(const char* name, double value) {
    return " +" + std::string(name) + "=" + std::to_string(value);
}

class ScaleBarPlaces : public FreshProgramTest {
protected:
    static void Rectangle(std::int16_t projNum, int north, int south, int west, int east, int spacing = 5) {
        StartRectangle(projNum, north, south, west, east, spacing);
        PrepareDesign();
    }
    static void Disc(std::int16_t projNum, int lat, int range) {
        StartDisc(projNum, lat, 15, range);
        PrepareDesign();
    }
    static std::string Words(std::optional<double> latitude = std::nullopt) {
        const auto place = PlaceOfScaleBar(latitude);
        return place ? place->words : "none";
    }
    /// Earth radii on the map for one on the globe.
    static double Scale(std::optional<double> latitude = std::nullopt) {
        const auto place = PlaceOfScaleBar(latitude);
        return place ? place->unitsPerKm * EarthKm : 0.0;
    }
};

TEST_F(ScaleBarPlaces, ScaleAlongAParallelIsThatOfAnIndependentLibrary) {
    for (const double lat : {-50.0, 0.0, 12.5, 45.0, 59.0}) {
        Rectangle(ProjMercator, 60, -60, -20, 40);
        EXPECT_NEAR(Scale(lat) / ReferenceScale("+proj=merc +R=1", lat, 3.0), 1.0, 1e-6);
        Rectangle(ProjEquirectangular, 60, -60, -20, 40);
        EXPECT_NEAR(Scale(lat) /
                        ReferenceScale("+proj=eqc +R=1" + Argument("lat_ts", Design.StdParNorth), lat, 3.0),
                    1.0, 1e-6);
        Rectangle(ProjCylindricalEqualArea, 60, -60, -20, 40);
        EXPECT_NEAR(Scale(lat) /
                        ReferenceScale("+proj=cea +R=1" + Argument("lat_ts", Design.StdParNorth), lat, 3.0),
                    1.0, 1e-6);
        Rectangle(ProjMollweide, 60, -60, -20, 40);
        EXPECT_NEAR(Scale(lat) / ReferenceScale("+proj=moll +R=1", lat, 3.0), 1.0, 1e-5);
        // PROJ takes the Robinson from its published table, which the polynomials follow.
        Rectangle(ProjRobinson, 60, -60, -20, 40);
        EXPECT_NEAR(Scale(lat) / ReferenceScale("+proj=robin +R=1", lat, 3.0), 1.0, 2e-3);
        Rectangle(ProjHammer, 60, -60, -20, 40);
        EXPECT_NEAR(Scale(lat) / ReferenceScale("+proj=hammer +R=1", lat, 0.0), 1.0, 1e-5);
    }
}

TEST_F(ScaleBarPlaces, ScaleOfAConeIsThatOfAnIndependentLibrary) {
    const std::map<std::int16_t, std::string> names = {
        {ProjEquidistantConic, "eqdc"}, {ProjConformalConic, "lcc"}, {ProjAlbers, "aea"}};
    for (const auto& [projNum, name] : names) {
        for (const bool south : {false, true}) {
            Rectangle(projNum, south ? -20 : 70, south ? -70 : 20, -20, 40);
            const std::string definition = "+proj=" + name + " +R=1" + Argument("lat_1", Design.StdParNorth) +
                                           Argument("lat_2", Design.StdParSouth);
            for (const double lat : {20.0, 33.3, 45.0, 70.0}) {
                const double at = south ? -lat : lat;
                EXPECT_NEAR(Scale(at) / ReferenceScale(definition, at, 10.0), 1.0, 1e-6) << name << ' ' << at;
            }
        }
    }
}

TEST_F(ScaleBarPlaces, ScaleOfADiscIsThatOfAnIndependentLibrary) {
    const std::map<std::int16_t, std::string> names = {
        {ProjGnomonic, "gnom"},           {ProjStereographic, "stere"},
        {ProjOrthographic, "ortho"},      {ProjAzimuthalEquidistant, "aeqd"},
        {ProjAzimuthalEqualArea, "laea"}, {ProjVerticalPerspective, "nsper"}};
    for (const auto& [projNum, name] : names) {
        Disc(projNum, 40, 50);
        std::string definition = "+proj=" + name + " +R=1 +lat_0=40";
        if (projNum == ProjVerticalPerspective) {
            definition += Argument("h", Design.VpP - 1.0);
        }
        for (const double lat : {5.0, 30.0, 40.0, 61.0, 85.0}) {
            EXPECT_NEAR(Scale(lat) / ReferenceScale(definition, lat, 0.0), 1.0, 1e-5) << name << ' ' << lat;
        }
    }
}

TEST_F(ScaleBarPlaces, ScaleOfAZoneIsThatOfAnIndependentLibrary) {
    StartDesign(ProjUtm);
    Design.SpheroidName = "WGS84 1984";
    PrepareDesign();
    // 300 to 800 kilometres east, 5600 to 6200 north, about 9 W: the middle lies at 550 east, 5900 north.
    const auto place = PlaceOfScaleBar(std::nullopt);
    ASSERT_TRUE(place);
    EXPECT_EQ(place->at.x, 550000.0);
    EXPECT_EQ(place->at.y, 5900000.0);
    EXPECT_EQ(place->words, "Scale at the centre");
    const std::string zone = "+proj=tmerc +ellps=WGS84 +k_0=0.9996 +x_0=500000";
    // 50 kilometres from the central meridian at 53.2 N, which is 0.75 degrees.
    EXPECT_NEAR(place->unitsPerKm / 1000.0, ReferenceScale(zone, 53.2, 0.7486), 1e-7);
    const auto north = PlaceOfScaleBar(55.0);
    ASSERT_TRUE(north);
    EXPECT_EQ(north->words, "Scale at 55\u00B0N");
    // A degree of latitude is 111.3 kilometres there.
    EXPECT_NEAR(north->at.y, 5900000.0 + (55.0 - 53.25) * 111300.0 * 0.9996, 5000.0);
    EXPECT_FALSE(PlaceOfScaleBar(40.0)) << "south of the map";
}

TEST_F(ScaleBarPlaces, ScalesByHand) {
    Rectangle(ProjMercator, 60, -60, -20, 40);
    EXPECT_NEAR(Scale(60.0), 2.0, 1e-7);
    Rectangle(ProjMollweide, 90, -90, -180, 180);
    EXPECT_NEAR(Scale(), 2.0 * std::numbers::sqrt2 / std::numbers::pi, 1e-7)
        << "the half axis over 180 degrees";
    Rectangle(ProjRobinson, 90, -90, -180, 180);
    EXPECT_NEAR(Scale(), 0.8487, 1e-7);
    for (const std::int16_t projNum : {ProjGnomonic, ProjStereographic, ProjOrthographic,
                                       ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        for (const int lat : {-90, -37, 0, 90}) {
            Disc(projNum, lat, 20);
            EXPECT_NEAR(Scale(), 1.0, 1e-6) << projNum << ' ' << lat;
        }
    }
}

TEST_F(ScaleBarPlaces, WorldMapsAreTrueAlongTheEquatorOrNowhere) {
    for (const std::int16_t projNum :
         {ProjEquirectangular, ProjCylindricalEqualArea, ProjMollweide, ProjRobinson}) {
        Rectangle(projNum, 90, -90, -180, 180);
        EXPECT_EQ(Words(), "Scale along the equator") << projNum;
    }
    Rectangle(ProjMercator, 80, -60, -180, 180);
    EXPECT_EQ(Words(), "Scale along the equator") << "though the middle lies at 10 N";
    Rectangle(ProjHammer, 90, -90, -180, 180);
    EXPECT_EQ(Words(), "none") << "at its edge the scale is less by 29 percent";
    Disc(ProjOrthographic, 40, 90);
    EXPECT_EQ(Words(), "none");
    Disc(ProjStereographic, 40, 90);
    EXPECT_EQ(Words(), "none") << "its edge has twice the scale";
    Disc(ProjAzimuthalEqualArea, 40, 180);
    EXPECT_EQ(Words(), "none");
    Disc(ProjVerticalPerspective, 40, 90);
    EXPECT_EQ(Words(), "none") << "the scale at the horizon is 0";
    Disc(ProjGnomonic, 40, 60);
    EXPECT_EQ(Words(), "none") << "outward four times the scale";
    Disc(ProjAzimuthalEquidistant, 40, 180);
    EXPECT_EQ(Words(), "Scale from the centre") << "of it all distances from the centre are true";
}

TEST_F(ScaleBarPlaces, MapsOfRegionsAreTrueNearTheirMiddle) {
    Rectangle(ProjConformalConic, 70, 30, -10, 40);
    EXPECT_EQ(Words(), "Scale at 50\u00B0N");
    Rectangle(ProjAlbers, -10, -45, 110, 160);
    EXPECT_EQ(Words(), "Scale at 28\u00B0S") << "of 35 degrees the eighth is above 2: the middle is 27.5";
    Rectangle(ProjMercator, 48, 30, -7, 37, 2);
    EXPECT_EQ(Words(), "Scale at 40\u00B0N");
    Rectangle(ProjMercator, 60, -60, 100, -120, 20);
    EXPECT_EQ(Words(), "Scale along the equator");
    Rectangle(ProjEquirectangular, 2, 1, 0, 2, 1);
    EXPECT_EQ(Words(), "Scale at 1\u00B030'N");
    Rectangle(ProjHammer, 30, 0, -10, 20);
    EXPECT_EQ(Words(), "Scale at the centre");
    // At 60 N it is 1.15 along the parallel, and 0.87 along the meridian.
    Rectangle(ProjHammer, 60, 50, -10, 20);
    EXPECT_EQ(Words(), "none");
    Disc(ProjStereographic, -90, 32);
    EXPECT_EQ(Words(), "Scale at the centre");
    Disc(ProjAzimuthalEqualArea, -5, 20);
    EXPECT_EQ(Words(), "Scale at the centre");
}

TEST_F(ScaleBarPlaces, ALatitudeOfOnesOwnIsTakenWhereItIsOnTheMap) {
    Rectangle(ProjMercator, 60, -20, -20, 40);
    EXPECT_EQ(Words(45.0), "Scale at 45\u00B0N");
    EXPECT_EQ(Words(-12.5), "Scale at 12\u00B030'S");
    EXPECT_EQ(Words(50.0 + 5.0 / 3600.0), "Scale at 50\u00B000'05\"N");
    EXPECT_EQ(Words(0.0), "Scale along the equator");
    EXPECT_EQ(Words(61.0), "none");
    EXPECT_EQ(Words(-20.5), "none");
    EXPECT_THAT(NoteOfScaleBar(61.0), HasSubstr("does not reach"));
    EXPECT_THAT(NoteOfScaleBar(45.0), HasSubstr("Scale at 45\u00B0N"));
    Rectangle(ProjHammer, 90, -90, -180, 180);
    EXPECT_EQ(Words(45.0), "Scale at 45\u00B0N on the central meridian");
    EXPECT_EQ(Words(90.0), "none") << "a point";
    EXPECT_THAT(NoteOfScaleBar(std::nullopt), HasSubstr("too far"));
    Disc(ProjOrthographic, 40, 60);
    EXPECT_EQ(Words(-15.0), "Scale at 15\u00B0S on the central meridian");
    EXPECT_EQ(Words(-21.0), "none");
}

TEST_F(ScaleBarPlaces, TheDistanceUnderABarIsThatBetweenThePlacesAtItsEnds) {
    // Orthographic, from the centre: half the bar is the sine of its arc.
    Disc(ProjOrthographic, 0, 20);
    const auto place = PlaceOfScaleBar(std::nullopt);
    ASSERT_TRUE(place);
    for (const double km : {100.0, 1000.0, 2000.0}) {
        EXPECT_NEAR(*DistanceUnderBar(*place, km), 2.0 * std::asin(km / 2.0 / EarthKm) * EarthKm, 1e-3);
    }
    EXPECT_FALSE(DistanceUnderBar(*place, 15000.0)) << "beyond the horizon";
    Disc(ProjAzimuthalEquidistant, 52, 180);
    EXPECT_NEAR(*DistanceUnderBar(*PlaceOfScaleBar(std::nullopt), 5000.0), 5000.0, 1e-2);
}

TEST_F(ScaleBarPlaces, AskingLeavesTheMapAsItIs) {
    Rectangle(ProjMollweide, 90, -90, -180, 180);
    Design.ProjX = 1.5;
    Design.ProjLat = 7.0;
    Design.ProjOffMap = true;
    PlaceOfScaleBar(std::nullopt);
    EXPECT_EQ(Design.ProjX, 1.5);
    EXPECT_EQ(Design.ProjLat, 7.0);
    EXPECT_TRUE(Design.ProjOffMap);
}

} // namespace
} // namespace quelmont
