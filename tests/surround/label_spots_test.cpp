#include "surround/label_spots.h"

#include "core/map_design.h"
#include "graticule/grid_fixture.h"
#include "graticule/grid_texts.h"
#include "graticule/lobes.h"
#include "projection/lobe_row.h"
#include "projection/reference_projection.h"

#include <gmock/gmock.h>

#include <cmath>
#include <numbers>

namespace quelmont {
namespace {

using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

constexpr double Radians = std::numbers::pi / 180.0;
constexpr std::int32_t Degree = 3600;

/// The lines of a default map with a label at the frame.
class LabelSpots : public FreshProgramTest {
protected:
    static std::vector<LabelledLine> Lines(GridLabelPlace place = GridLabelPlace::Frame) {
        return LabelledLines({.place = place, .style = GridLabelStyle::DegreeSign});
    }
    /// The spots of the line of a text; the first of them, or the second, where two lines have one text.
    static std::vector<LabelSpot> SpotsOf(const std::vector<LabelledLine>& lines, const std::string& text) {
        std::vector<LabelSpot> spots;
        for (const LabelledLine& line : lines) {
            if (line.text == text) {
                spots.insert(spots.end(), line.spots.begin(), line.spots.end());
            }
        }
        return spots;
    }
    static void ExpectAt(const LabelSpot& spot, double x, double y, double tolerance = 1e-9) {
        EXPECT_NEAR(spot.x, x, tolerance);
        EXPECT_NEAR(spot.y, y, tolerance);
    }
};

TEST_F(LabelSpots, OfARectangleAreTheEndsOfItsLines) {
    StartDesign(ProjEquirectangular);
    PrepareDesign();
    const auto lines = Lines();
    const double k = Design.CosStdPar;
    for (const int lat : {-90, -60, -30, 30, 60, 90}) {
        const auto spots = SpotsOf(lines, std::to_string(std::abs(lat)) + "\u00B0" + (lat < 0 ? "S" : "N"));
        ASSERT_THAT(spots, SizeIs(2)) << lat;
        ExpectAt(spots[0], 0.0, lat * Radians);
        EXPECT_NEAR(spots[0].alongX, -1.0, 1e-12);
        EXPECT_NEAR(spots[0].alongY, 0.0, 1e-12);
        ExpectAt(spots[1], 360.0 * k * Radians, lat * Radians);
        EXPECT_NEAR(spots[1].alongX, 1.0, 1e-12);
    }
    const auto spots = SpotsOf(lines, "45\u00B0E");
    ASSERT_THAT(spots, SizeIs(2));
    ExpectAt(spots[0], 225.0 * k * Radians, -90.0 * Radians);
    EXPECT_NEAR(spots[0].alongY, -1.0, 1e-12);
    ExpectAt(spots[1], 225.0 * k * Radians, 90.0 * Radians);
    EXPECT_NEAR(spots[1].alongY, 1.0, 1e-12);
}

TEST_F(LabelSpots, OnMercatorLieAtTheHeightOfTheirParallel) {
    StartDesign(ProjMercator);
    Design.GridText[GridTextNorth] = LatitudeText(80 * Degree);
    Design.GridText[GridTextSouth] = LatitudeText(-80 * Degree);
    Design.GridText[GridTextLatSpacing] = ArcText(20 * Degree);
    PrepareDesign();
    const auto spots = SpotsOf(Lines(), "60\u00B0N");
    ASSERT_THAT(spots, SizeIs(2));
    // ln tan(45 + 30 degrees) = 1.316957896924817
    ExpectAt(spots[0], 0.0, 1.316957896924817, 1e-12);
}

TEST_F(LabelSpots, OfTheUtmGridAreItsMetres) {
    StartDesign(ProjUtm);
    PrepareDesign();
    const auto lines = Lines();
    const auto northing = SpotsOf(lines, "5700 km N");
    ASSERT_THAT(northing, SizeIs(2));
    ExpectAt(northing[0], 300000.0, 5700000.0);
    ExpectAt(northing[1], 800000.0, 5700000.0);
    const auto easting = SpotsOf(lines, "400 km E");
    ASSERT_THAT(easting, SizeIs(2));
    ExpectAt(easting[0], 400000.0, 5600000.0);
    EXPECT_NEAR(easting[0].alongY, -1.0, 1e-12);
}

TEST_F(LabelSpots, OfAConeAreTheEndsOfItsArcsAndRays) {
    StartDesign(ProjAlbers);
    Design.GridText[GridTextNorth] = LatitudeText(60 * Degree);
    Design.GridText[GridTextSouth] = LatitudeText(30 * Degree);
    Design.GridText[GridTextLatSpacing] = ArcText(10 * Degree);
    Design.GridText[GridTextWest] = LongitudeText(-20 * Degree);
    Design.GridText[GridTextEast] = LongitudeText(40 * Degree);
    Design.GridText[GridTextLonSpacing] = ArcText(20 * Degree);
    PrepareDesign();
    const ReferenceProjection albers(Definition(
        "aea", {{"lat_1", Design.StdParNorth}, {"lat_2", Design.StdParSouth}, {"lat_0", Design.LatCentral}}));
    const auto lines = Lines();
    const auto west = albers.Forward(40.0, -30.0);
    const auto east = albers.Forward(40.0, 30.0);
    const auto parallel = SpotsOf(lines, "40\u00B0N");
    ASSERT_THAT(parallel, SizeIs(2));
    ExpectAt(parallel[0], west->x, west->y);
    ExpectAt(parallel[1], east->x, east->y);
    EXPECT_LT(parallel[0].alongX, -0.8) << "away from the map, across the meridian that bounds it";
    EXPECT_GT(parallel[1].alongX, 0.8);
    const auto south = albers.Forward(30.0, -10.0);
    const auto north = albers.Forward(60.0, -10.0);
    const auto meridian = SpotsOf(lines, "0\u00B0");
    ASSERT_THAT(meridian, SizeIs(2));
    ExpectAt(meridian[0], south->x, south->y);
    ExpectAt(meridian[1], north->x, north->y);
    EXPECT_LT(meridian[0].alongY, -0.9);
    EXPECT_GT(meridian[1].bend, 0.0) << "the northern arc rises on both sides of its label";
    EXPECT_LT(meridian[0].bend, 0.0);
}

TEST_F(LabelSpots, OfAnOvalAreOnItsOutlineAndThoseOfMeridiansInside) {
    StartDesign(ProjMollweide);
    PrepareDesign();
    const ReferenceProjection mollweide(Definition("moll"));
    const auto lines = Lines();
    const auto expected = mollweide.Forward(30.0, 180.0);
    const auto parallel = SpotsOf(lines, "30\u00B0N");
    ASSERT_THAT(parallel, SizeIs(2));
    ExpectAt(parallel[0], -expected->x, expected->y);
    ExpectAt(parallel[1], expected->x, expected->y);
    const auto pole = SpotsOf(lines, "90\u00B0N");
    ASSERT_THAT(pole, SizeIs(1)) << "a point";
    ExpectAt(pole[0], 0.0, std::numbers::sqrt2, 1e-6);
    EXPECT_NEAR(pole[0].alongY, 1.0, 1e-6);
    for (const LabelledLine& line : lines) {
        if (line.text == "45\u00B0E") {
            EXPECT_FALSE(line.atFrame) << "it ends at the poles";
            const auto inside = mollweide.Forward(15.0, 45.0);
            ASSERT_THAT(line.spots, Not(IsEmpty()));
            ExpectAt(line.spots[0], inside->x, inside->y, 1e-6);
        }
    }
}

TEST_F(LabelSpots, OfADiscLieOnItsCircle) {
    StartDesign(ProjStereographic);
    Design.GridText[GridTextCentralLat] = LatitudeText(35 * Degree);
    Design.GridText[GridTextCentralLon] = LongitudeText(10 * Degree);
    Design.GridText[GridTextRange] = ArcText(60 * Degree);
    PrepareDesign();
    const ReferenceProjection stereographic(Definition("stere", {{"lat_0", 35.0}}));
    std::size_t ends = 0;
    for (const LabelledLine& line : Lines()) {
        for (const LabelSpot& spot : line.spots) {
            if (!line.atFrame) {
                continue;
            }
            ++ends;
            EXPECT_NEAR(std::hypot(spot.x, spot.y), Design.MapXMax, 1e-9) << line.text;
            const auto place = stereographic.Inverse(spot.x, spot.y);
            ASSERT_TRUE(place);
            const double degrees =
                std::stod(line.text) * (line.text.find_first_of("SW") == std::string::npos ? 1 : -1);
            const bool parallel = line.text.find_first_of("NS") != std::string::npos;
            const double off =
                parallel ? place->lat - degrees : std::remainder(place->lon + 10.0 - degrees, 360.0);
            if (line.text != "0\u00B0") {
                EXPECT_NEAR(off, 0.0, 1e-6) << line.text;
            }
        }
    }
    EXPECT_GE(ends, 8U);
}

TEST_F(LabelSpots, OfTheWholeGlobeAreWhereLinesReachTheAntipode) {
    StartDesign(ProjAzimuthalEquidistant);
    PrepareDesign();
    std::vector<std::string> atFrame;
    for (const LabelledLine& line : Lines()) {
        if (line.atFrame) {
            atFrame.push_back(line.text);
            EXPECT_THAT(line.spots, SizeIs(2));
        }
    }
    // The centre is 40 N 0 E; of the grid only the far meridian passes through its antipode.
    EXPECT_THAT(atFrame, testing::ElementsAre("180\u00B0"));
}

TEST_F(LabelSpots, OfLobesAreTheEndsOfEachLobe) {
    StartDesign(ProjInterruptedMollweide);
    Design.LobeText = {"1", "0", "180    00    00    W", "000    00    00    E"};
    Design.LobeLonText = {"180    00    00    W", "000    00    00    E", "180    00    00    E",
                          "180    00    00    W", "180    00    00    E"};
    Design.LobeLonDeg = {-180.0, 0.0, 180.0, -180.0, 180.0};
    PrepareDesign();
    LonInterruptOffset();
    PrepareDesign();
    const ReferenceProjection mollweide(Definition("moll"));
    const double quarter = mollweide.Forward(0.0, 90.0)->x;
    const double half = mollweide.Forward(60.0, 90.0)->x;
    const double whole = mollweide.Forward(60.0, 180.0)->x;
    const auto north = SpotsOf(Lines(), "60\u00B0N");
    ASSERT_THAT(north, SizeIs(4)) << "two lobes";
    EXPECT_NEAR(north[0].x, -quarter - half, 1e-9);
    EXPECT_NEAR(north[1].x, -quarter + half, 1e-9);
    EXPECT_NEAR(north[2].x, quarter - half, 1e-9);
    EXPECT_NEAR(north[3].x, quarter + half, 1e-9);
    const auto south = SpotsOf(Lines(), "60\u00B0S");
    ASSERT_THAT(south, SizeIs(2)) << "one lobe";
    EXPECT_NEAR(south[1].x, whole, 1e-9);
    EXPECT_EQ(Design.LatSouthSec, -90 * Degree) << "the bounds are those of the map again";
    EXPECT_EQ(Design.LobeOffsetX, 0.0);
}

TEST_F(LabelSpots, AreNoneWithoutLabelsAndWithoutAMap) {
    StartDesign(ProjHammer);
    EXPECT_THAT(Lines(), IsEmpty()) << "no bounds were calculated";
    PrepareDesign();
    EXPECT_THAT(Lines(GridLabelPlace::None), IsEmpty());
    EXPECT_THAT(Lines(), Not(IsEmpty()));
}

TEST_F(LabelSpots, LeaveThePointCellAsItWas) {
    StartDesign(ProjRobinson);
    PrepareDesign();
    Design.ProjLat = 1.0;
    Design.ProjLon = 2.0;
    Design.ProjX = 3.0;
    Design.ProjY = 4.0;
    Design.ProjOffMap = true;
    Design.PointStatus = PointBeginsLine;
    Lines(GridLabelPlace::Lines);
    EXPECT_EQ(Design.ProjLat, 1.0);
    EXPECT_EQ(Design.ProjLon, 2.0);
    EXPECT_EQ(Design.ProjX, 3.0);
    EXPECT_EQ(Design.ProjY, 4.0);
    EXPECT_TRUE(Design.ProjOffMap);
    EXPECT_EQ(Design.PointStatus, PointBeginsLine);
}

} // namespace
} // namespace quelmont
