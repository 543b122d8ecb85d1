#include "commandline/design_options.h"

#include "mainwindow/start_up.h"
#include "projection/projection_table.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The options of a command line; the output is added.
DrawOptions Options(std::vector<std::string> arguments) {
    arguments.emplace_back("a.png");
    auto result = ReadDrawOptions(arguments, "");
    if (const auto* wrong = std::get_if<WrongUsage>(&result)) {
        ADD_FAILURE() << wrong->reason;
        return {};
    }
    return std::get<DrawOptions>(result);
}

class DesignOptions : public FreshProgramTest {
protected:
    DesignOptions() { StartUp(); }

    bool Apply(std::vector<std::string> arguments) { return ApplyOptions(Options(std::move(arguments))); }
};

TEST_F(DesignOptions, NoneLeaveTheDefaultDesign) {
    const MapDesign before = Design;
    ASSERT_TRUE(Apply({}));
    EXPECT_EQ(Design.ProjNum, 2);
    EXPECT_EQ(Design.GridText, before.GridText);
    EXPECT_EQ(Design.StdParNorth, 45.0); // the middle of the northern half of the world
    EXPECT_EQ(Design.StdParSouth, -45.0);
    EXPECT_EQ(Design.MapXMax, before.MapXMax);
    EXPECT_EQ(Design.MapYMin, before.MapYMin);
    EXPECT_EQ(Design.MapReduce, 1.0);
    EXPECT_EQ(Design.InputFiles.size(), 1U);
    EXPECT_EQ(Design.InputFiles[0].MapFileName, "/program/Qmnt4.map");
    EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
}

class ProposedDesign : public DesignOptions, public testing::WithParamInterface<ProjectionEntry> {};

TEST_P(ProposedDesign, AcceptsWhatItsOwnDialogProposes) {
    EXPECT_TRUE(Apply({"--projection", std::to_string(GetParam().ProjNum)}));
    EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
    EXPECT_EQ(Design.ProjNum, GetParam().ProjNum);
    EXPECT_EQ(Design.ProjName, GetParam().ProjName);
    EXPECT_LT(Design.MapXMin, Design.MapXMax);
    EXPECT_LT(Design.MapYMin, Design.MapYMax);
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_TRUE(Design.ProjGridSet[static_cast<std::size_t>(GetParam().ProjNum)]);
}

INSTANTIATE_TEST_SUITE_P(All, ProposedDesign, testing::ValuesIn(Projections),
                         [](const auto& test) { return "Number" + std::to_string(test.param.ProjNum); });

TEST_F(DesignOptions, MercatorStaysAwayFromThePoles) {
    ASSERT_TRUE(Apply({"--projection", "mercator"}));
    EXPECT_EQ(Design.LatNorth, 80.0);
    EXPECT_EQ(Design.LatSouth, -80.0);
    EXPECT_EQ(Design.LatGrid, 20.0);
    EXPECT_EQ(Design.LatGridCount, 8);
}

TEST_F(DesignOptions, ConformalConicEndsAtSixtySouth) {
    ASSERT_TRUE(Apply({"--projection", "conformal"}));
    EXPECT_EQ(Design.LatNorth, 90.0);
    EXPECT_EQ(Design.LatSouth, -60.0);
    // A sixth of the height from either edge.
    EXPECT_EQ(Design.StdParNorth, 65.0);
    EXPECT_EQ(Design.StdParSouth, -35.0);
}

TEST_F(DesignOptions, RangesAreWhatTheProjectionCanShow) {
    const std::vector<std::pair<const char*, std::int32_t>> ranges{{"gnomonic", 60},
                                                                   {"stereographic", 90},
                                                                   {"orthographic", 90},
                                                                   {"azimuthal equidistant", 180},
                                                                   {"azimuthal equal-area", 180}};
    for (const auto& [projection, degrees] : ranges) {
        ASSERT_TRUE(Apply({"--projection", projection}));
        EXPECT_EQ(Design.RangeSec, degrees * 3600) << projection;
        EXPECT_EQ(Design.LatCentral, 40.0);
        EXPECT_EQ(Design.StdParNorthText, "00    00    00    N");
    }
}

TEST_F(DesignOptions, PerspectiveTakesItsHeight) {
    ASSERT_TRUE(Apply({"--projection", "29", "--height-km", "6371"}));
    EXPECT_EQ(Design.GridText[GridTextHeight], "00006371");
    EXPECT_EQ(Design.VpP, 2.0);            // one earth radius above the ground
    EXPECT_EQ(Design.RangeSec, 60 * 3600); // arc cosine of one half
    EXPECT_EQ(Design.LatCentral, 40.0);
}

TEST_F(DesignOptions, BoundsReplaceWhatIsProposed) {
    ASSERT_TRUE(Apply({"--projection", "robinson", "--north", "60N", "--south", "-20", "--lat-grid", "8",
                       "--west", "170E", "--east", "170W", "--lon-grid", "2:30"}));
    EXPECT_EQ(Design.GridText[GridTextNorth], "60    00    00    N");
    EXPECT_EQ(Design.LatSouthSec, -20 * 3600);
    EXPECT_EQ(Design.LatGridCount, 10);
    EXPECT_EQ(Design.LonSpan, 20.0);
    EXPECT_EQ(Design.LonGridCount, 8);
    EXPECT_EQ(Design.LonMiddle, 180.0);
}

TEST_F(DesignOptions, OnlyOneBoundMayBeGiven) {
    ASSERT_TRUE(Apply({"--projection", "robinson", "--south", "0"}));
    EXPECT_EQ(Design.LatNorth, 90.0);
    EXPECT_EQ(Design.LatSouth, 0.0);
}

TEST_F(DesignOptions, StandardParallelsAreProposedForTheBounds) {
    ASSERT_TRUE(Apply({"--projection", "albers", "--north", "50N", "--south", "20N", "--lat-grid", "10"}));
    EXPECT_EQ(Design.StdParNorth, 45.0); // a sixth of 30 degrees from either edge
    EXPECT_EQ(Design.StdParSouth, 25.0);
    EXPECT_EQ(Design.StdParText[StdParTextNorth], "45    00    00    N");
    EXPECT_EQ(Design.StdParSouthText, "25    00    00    N");
}

TEST_F(DesignOptions, OneOrBothStandardParallelsMayBeGiven) {
    ASSERT_TRUE(Apply({"--projection", "albers", "--north", "50N", "--south", "20N", "--lat-grid", "10",
                       "--std-south", "29:30"}));
    EXPECT_EQ(Design.StdParNorth, 45.0);
    EXPECT_EQ(Design.StdParSouth, 29.5);
    // n = (sin 45 + sin 29.5) / 2, so the extent was computed with them.
    EXPECT_NEAR(Design.ConeConstant,
                (std::sin(Design.StdParNorth * DegToRad) + std::sin(29.5 * DegToRad)) / 2.0, 1e-15);
}

TEST_F(DesignOptions, ParallelOfTrueScaleIsMirrored) {
    ASSERT_TRUE(Apply({"--projection", "cylindrical", "--std-north", "30N", "--std-south", "10S"}));
    EXPECT_EQ(Design.StdParNorth, 30.0);
    EXPECT_EQ(Design.StdParSouth, -30.0);
    EXPECT_EQ(Design.StdParText[StdParTextSouth], "30    00    00    S");
}

TEST_F(DesignOptions, LobesAreOrderedAndPlaced) {
    ASSERT_TRUE(Apply({"--projection", "42"}));
    EXPECT_THAT(Design.LobeLonDeg,
                ElementsAre(20.0, 100.0, -100.0, 20.0, 20.0, 140.0, -70.0, 20.0, 0.0, 0.0));
    // The first northern lobe's middle, 60 E, lies 40 degrees east of the left boundary.
    EXPECT_NEAR(Design.LobeCentral[1], -140.0 * DegToRad * 2.0 * Sqrt2 / Pi, 1e-12);
    EXPECT_EQ(Design.LobeCentral[4], 0.0);
}

TEST_F(DesignOptions, LobesMayBeFewerOrNone) {
    ASSERT_TRUE(Apply({"--projection", "42", "--lobes-north", "none", "--lobes-south", "80W"}));
    EXPECT_EQ(Design.LobeText[LobeTextCountNorth], "0");
    EXPECT_EQ(Design.LobeText[LobeTextCountSouth], "1");
    EXPECT_THAT(Design.LobeLonDeg, ElementsAre(20.0, 20.0, 20.0, -80.0, 20.0, 0.0, 0.0, 0.0, 0.0, 0.0));
    EXPECT_EQ(Design.LobeCentral[1], 0.0);
}

TEST_F(DesignOptions, UtmTakesItsZoneAndItsMetres) {
    ASSERT_TRUE(Apply(
        {"--projection",     "utm",   "--spheroid",          "wgs84 1984", "--utm-central-lon",    "9E",
         "--utm-origin-lat", "1N",    "--utm-false-easting", "400000",     "--utm-false-northing", "5",
         "--utm-scale",      "1",     "--utm-north",         "5400000",    "--utm-south",          "5200000",
         "--utm-lat-grid",   "50000", "--utm-west",          "300000",     "--utm-east",           "500000",
         "--utm-lon-grid",   "100000"}));
    EXPECT_EQ(Design.SpheroidA, 6378137.0);
    EXPECT_EQ(Design.LonCentral, 9.0);
    EXPECT_EQ(Design.LatCentral, 1.0);
    EXPECT_EQ(Design.UtmFalseEasting, 400000.0);
    EXPECT_EQ(Design.UtmFalseNorthing, 5.0);
    EXPECT_EQ(Design.UtmK0, 1.0);
    EXPECT_EQ(Design.MapXMin, 300000.0);
    EXPECT_EQ(Design.MapXMax, 500000.0);
    EXPECT_EQ(Design.MapYMin, 5200000.0);
    EXPECT_EQ(Design.MapYMax, 5400000.0);
    EXPECT_EQ(Design.LatGridCount, 4);
    EXPECT_EQ(Design.LonGridCount, 2);
}

TEST_F(DesignOptions, GridAndColours) {
    ASSERT_TRUE(Apply({"--grid-type", "5", "--grid-color", "0000FF", "--grid-width", "3", "--background",
                       "000000", "--percent", "40"}));
    EXPECT_EQ(Design.GridTypeCode, 5);
    EXPECT_EQ(Design.GridTypeText, " No grid (the map will have no latitude or longitude markings)");
    EXPECT_EQ(Design.GridOutputCount, 0);
    EXPECT_EQ(Design.GridColor, SolidColor(Rgb(0, 0, 255)));
    EXPECT_EQ(Design.GridLineWidth, 45.0F);
    EXPECT_EQ(Design.BackColor, SolidColor(Rgb(0, 0, 0)));
    EXPECT_EQ(Design.MapReduce, 0.4);
}

TEST_F(DesignOptions, MapFilesReplaceTheDefaultMap) {
    ASSERT_TRUE(Apply({"--map", "a.map", "--symbol", "5", "--feature-color", "00FF00", "--line-width", "2",
                       "--symbol-size", "7", "--border-width", "3", "--hide", "2,10", "--map", "b.prn"}));
    ASSERT_EQ(Design.InputFiles.size(), 2U);
    EXPECT_EQ(Design.MapFileCount, 2);
    const InputFileEntry& a = Design.InputFiles[0];
    EXPECT_EQ(a.MapFileName, "a.map");
    EXPECT_EQ(a.MapFileType, 5);
    for (std::size_t row = 1; row <= 10; ++row) {
        EXPECT_EQ(a.Features[row].Color, SolidColor(Rgb(0, 255, 0)));
        EXPECT_EQ(a.Features[row].LineWidth, 30);
        EXPECT_EQ(a.Features[row].SymbolSize, 105);
        EXPECT_EQ(a.Features[row].BorderWidth, 45);
        EXPECT_EQ(a.Features[row].Shown, row != 2 && row != 10);
    }
    EXPECT_FALSE(a.Features[0].Shown);
    EXPECT_FALSE(a.Features[11].Shown);
    const InputFileEntry& b = Design.InputFiles[1];
    EXPECT_EQ(b.MapFileType, 1);
    EXPECT_TRUE(b.Features[1].Shown);
    EXPECT_EQ(b.Features[1].LineWidth, 15);
}

TEST_F(DesignOptions, DefaultMapTakesTheStylesBeforeTheFirstMap) {
    ASSERT_TRUE(
        Apply({"--symbol", "3", "--feature-color", "102030", "--symbol-size", "4", "--hide", "3,10"}));
    ASSERT_EQ(Design.InputFiles.size(), 1U);
    const InputFileEntry& map = Design.InputFiles[0];
    EXPECT_EQ(map.MapFileName, "/program/Qmnt4.map");
    EXPECT_EQ(map.MapFileType, SymbolPlus);
    for (std::size_t row = 1; row <= 10; ++row) {
        EXPECT_EQ(map.Features[row].Color & 0xFFFFFFU, Rgb(0x10, 0x20, 0x30)) << row;
        EXPECT_EQ(map.Features[row].SymbolSize, 60) << "4 pixels of 15 twips";
        EXPECT_EQ(map.Features[row].Shown, row != 3 && row != 10) << row;
    }
}

TEST_F(DesignOptions, BorderWidthIsOfSymbolsThatHaveABorder) {
    const std::array hasBorder = {false, false, true, true,  true, false,
                                  true,  false, true, false, true, false};
    for (int symbol = 1; symbol <= 12; ++symbol) {
        ASSERT_TRUE(Apply({"--map", "b.prn", "--symbol", std::to_string(symbol), "--border-width", "3"}));
        const std::int16_t width = Design.InputFiles[0].Features[1].BorderWidth;
        EXPECT_EQ(width, hasBorder[static_cast<std::size_t>(symbol - 1)] ? 45 : 15) << symbol;
    }
}

TEST_F(DesignOptions, LabelsAreArialOfTenPointsInBlackUnlessAnOptionSaysOtherwise) {
    ASSERT_TRUE(Apply({"--map", "a.prn", "--label-font", "Courier", "--label-size", "24", "--label-color",
                       "FF0000", "--map", "b.utm", "--map", "c.map"}));
    EXPECT_EQ(Design.InputFiles[0].LabelFontName, "Courier");
    EXPECT_EQ(Design.InputFiles[0].LabelFontSize, 24);
    EXPECT_EQ(Design.InputFiles[0].LabelColor, SolidColor(Rgb(255, 0, 0)));
    EXPECT_EQ(Design.InputFiles[1].LabelFontName, "Arial");
    EXPECT_EQ(Design.InputFiles[1].LabelFontSize, 10);
    EXPECT_EQ(Design.InputFiles[1].LabelColor, 33554432U);
    EXPECT_EQ(Design.InputFiles[2].LabelFontName, "") << "has no labels";
    EXPECT_TRUE(Design.LabelsVisible);
}

TEST_F(DesignOptions, LabelsCanBeLeftOut) {
    ASSERT_TRUE(Apply({"--no-labels"}));
    EXPECT_FALSE(Design.LabelsVisible);
}

TEST_F(DesignOptions, NoMapLeavesTheListEmpty) {
    ASSERT_TRUE(Apply({"--no-map"}));
    EXPECT_THAT(Design.InputFiles, IsEmpty());
    EXPECT_EQ(Design.MapFileCount, 0);
}

/// A design that is refused, and the box that says so.
struct RefusedCase {
    const char* name;
    std::vector<std::string> arguments;
    const char* title;
    const char* text;
};
std::ostream& operator<<(std::ostream& stream, const RefusedCase& refused) { return stream << refused.name; }

class Refused : public DesignOptions, public testing::WithParamInterface<RefusedCase> {};

TEST_P(Refused, ShowsItsBox) {
    EXPECT_FALSE(Apply(GetParam().arguments));
    const std::vector<AskedBox> boxes = machine.boxes.Taken();
    ASSERT_EQ(boxes.size(), 1U);
    EXPECT_EQ(boxes[0].title, GetParam().title);
    EXPECT_THAT(boxes[0].text, testing::StartsWith(GetParam().text));
    EXPECT_FALSE(Design.ProjOffMap);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Designs, Refused, testing::Values(
    RefusedCase{"NorthLetter", {"--north", "40W"}, "Error: Northernmost latitude", "Hemisphere must be N or S"},
    RefusedCase{"NorthDegrees", {"--north", "100"}, "Error: Northernmost latitude", "Degrees must be <= 90"},
    RefusedCase{"SouthLimit", {"--south", "90:00:01S"}, "Error: Southernmost latitude", "Latitude cannot be > 90  00  00"},
    RefusedCase{"WestMinutes", {"--west", "20:75W"}, "Error: Westernmost longitude", "Minutes must be <= 59"},
    RefusedCase{"EastSeconds", {"--east", "20:00:60E"}, "Error: Easternmost longitude", "Seconds must be <= 59"},
    RefusedCase{"LatGridZero", {"--lat-grid", "0"}, "Error: Degrees of latitude", "The DEGREES OF LATITUDE BETWEEN GRID MARKS must be greater than zero."},
    RefusedCase{"LonGridTooLarge", {"--lon-grid", "361"}, "Error: Degrees of longitude", "Degrees must be <= 360"},
    RefusedCase{"LatGridUneven", {"--lat-grid", "7"}, "Error: Degrees of latitude", "The DEGREES OF LATITUDE BETWEEN GRID MARKS do not yield"},
    RefusedCase{"LonGridUneven", {"--lon-grid", "7"}, "Error: Degrees of longitude", "The DEGREES OF LONGITUDE BETWEEN GRID MARKS do not yield"},
    RefusedCase{"NorthBelowSouth", {"--north", "10S", "--south", "10N"}, "Error: Latitude", "The NORTHERNMOST BOUNDARY of the grid is south"},
    RefusedCase{"NorthEqualsSouth", {"--north", "10N", "--south", "10N"}, "Error: Latitude", "The NORTHERNMOST and SOUTHERNMOST BOUNDARIES of the grid are equal."},
    RefusedCase{"WrongWayRound", {"--west", "180E", "--east", "180W"}, "Error: Longitude", "Quelmont cannot plot a map"},
    RefusedCase{"MercatorPole", {"--projection", "1", "--north", "90N"}, "Error: Mercator Projection", "You have included the North Pole (90\u00B0N)"},
    RefusedCase{"MercatorSouthPole", {"--projection", "1", "--south", "-90"}, "Error: Mercator Projection", "You have included the South Pole (90\u00B0S)"},
    RefusedCase{"ConformalPoles", {"--projection", "7", "--south", "90S"}, "Error: Conformal Conic Projection", "The Lambert Conformal Conic map projection cannot display both poles."},
    RefusedCase{"TrueScaleSouth", {"--std-north", "30S"}, "Error: Northernmost standard parallel", "Hemisphere must be N"},
    RefusedCase{"TrueScalePole", {"--std-north", "90"}, "Error: Northernmost standard parallel", "The latitude of the NORTHERNMOST STANDARD PARALLEL cannot be 90\u00B0 for the Equirectangular projection."},
    RefusedCase{"ParallelOutside", {"--projection", "8", "--north", "50N", "--south", "20N", "--lat-grid", "10", "--std-north", "50N"}, "Error: Northernmost standard parallel", "The latitude of the NORTHERNMOST STANDARD PARALLEL must be less"},
    RefusedCase{"ParallelsTurned", {"--projection", "8", "--std-north", "10N", "--std-south", "20N"}, "Error: Standard parallels", "The latitude of the NORTHERNMOST STANDARD PARALLEL must be greater"},
    RefusedCase{"ConformalSymmetry", {"--projection", "7", "--std-north", "30N", "--std-south", "30S"}, "Error: Conformal Conic standard parallels", "The latitudes of the NORTHERN- and SOUTHERNMOST STANDARD PARALLELS  cannot be equal"},
    RefusedCase{"GnomonicRange", {"--projection", "26", "--range", "90"}, "Error: Range of map in degrees", "RANGE OF MAP IN DEGREES must be < 90\u00B0."},
    RefusedCase{"OrthographicRange", {"--projection", "28", "--range", "90:00:01"}, "Error: Range of map in degrees", "RANGE OF MAP IN DEGREES must be <= 90\u00B0."},
    RefusedCase{"NoRange", {"--projection", "30", "--range", "0"}, "Error: Range of map in degrees", "RANGE OF MAP IN DEGREES must be > 0\u00B0."},
    RefusedCase{"CentralLatitude", {"--projection", "30", "--central-lat", "91"}, "Error: Central latitude", "Degrees must be <= 90"},
    RefusedCase{"AzimuthalGrid", {"--projection", "30", "--lat-grid", "7"}, "Error: Degrees of latitude", "The DEGREES OF LATITUDE BETWEEN GRID MARKS must yield an integer when divided into 180 degrees."},
    RefusedCase{"NoHeight", {"--projection", "29", "--height-km", "0"}, "Error: Distance above surface", "DISTANCE ABOVE SURFACE IN KILOMETERS must be >= 1."},
    RefusedCase{"InterruptionDegrees", {"--projection", "42", "--lobes-north", "60W,190W"}, "Error: Interrupted longitude #2 in Northern hemisphere", "Degrees must be <= 180"},
    RefusedCase{"InterruptionTwice", {"--projection", "42", "--lobes-south", "60W,60W"}, "Interrupted Longitude Error", "Interrupted longitude #2 in the Southern hemisphere equals\ninterrupted longitude #1."},
    RefusedCase{"InterruptionGrid", {"--projection", "42", "--lobes-north", "65W"}, "Interrupted Longitude Error", "In the Northern hemisphere, the longitude difference"},
    RefusedCase{"UtmZone", {"--projection", "17", "--utm-central-lon", "181W"}, "Error: Central longitude", "Degrees must be <= 180"},
    RefusedCase{"UtmOrigin", {"--projection", "17", "--utm-origin-lat", "9E"}, "Error: Latitude of map origin", "Hemisphere must be N or S"},
    RefusedCase{"UtmSpacing", {"--projection", "17", "--utm-lat-grid", "0"}, "Error: UTM projection", "The METERS BETWEEN NORTH/SOUTH GRID MARKS must be > 0."},
    RefusedCase{"UtmUneven", {"--projection", "17", "--utm-lon-grid", "70000"}, "Error: UTM projection", "The METERS BETWEEN EAST/WEST GRID MARKS does not yield"},
    RefusedCase{"UtmTurned", {"--projection", "17", "--utm-north", "5000000", "--utm-south", "5600000"}, "Error: UTM projection", "The NORTHERN BOUNDARY is south of the SOUTHERN BOUNDARY."}),
    [](const auto& test) { return test.param.name; });
// clang-format on

} // namespace
} // namespace quelmont
