#include "reports/parameter_report.h"

#include "circles/great_circle.h"
#include "circles/small_circle.h"
#include "core/map_design.h"
#include "projection/projection_table.h"
#include "reports/report_fixture.h"
#include "reports/report_page.h"

#include <gmock/gmock.h>

namespace quelmont {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class ParameterReportTest : public ReportTest {
protected:
    static std::vector<ReportRow> Section(const std::string& title) {
        return RowsOf(ParameterReport(), title);
    }
    static std::vector<ReportRow> Bounds() { return Section(" Map Coordinates "); }
};

TEST_F(ParameterReportTest, BeginsWithVersionProjectionAndGrid) {
    Design.VersionText = "3.00";
    Start(ProjEquirectangular);
    EXPECT_THAT(RowsOf(ParameterReport(), ""),
                ElementsAre(ReportRow{"Quelmont Version 3.00 Parameter Report"},
                            ReportRow{"Projection Type: Equirectangular"},
                            ReportRow{"Grid Type: All grid points connected by lines"}));
}

TEST_F(ParameterReportTest, SectionsStandInTheirOrderAndThoseOfCirclesOnlyWhenTheyAreSet) {
    Start(ProjInterruptedMollweide);
    EXPECT_THAT(TitlesOf(ParameterReport()),
                ElementsAre("", " Map Coordinates ", " Longitude Interruptions ",
                            " Transformed x,y Map Coordinates ", " Scale Errors ",
                            " List of Digital Map Files ", " Name of Map Design Configuration File ",
                            " x, y Pixel Size of Map Drawing Area "));
    Start(ProjRobinson);
    Design.GcDefined = true;
    Design.ScDefined = true;
    EXPECT_THAT(TitlesOf(ParameterReport()),
                ElementsAre("", " Map Coordinates ", " Transformed x,y Map Coordinates ", " Scale Errors ",
                            " Great Circle Information ", " Small Circle Information ",
                            " List of Digital Map Files ", " Name of Map Design Configuration File ",
                            " x, y Pixel Size of Map Drawing Area "));
}

TEST_F(ParameterReportTest, BoundsInDegrees) {
    Start(ProjMercator);
    EXPECT_THAT(
        Bounds(),
        ElementsAre(
            ReportRow{"Northernmost Latitude:", "80 00 00 N", "Westernmost Longitude:", "180 00 00 W"},
            ReportRow{"Southernmost Latitude:", "80 00 00 S", "Easternmost Longitude:", "180 00 00 E"},
            ReportRow{"Latitude Spacing:", "020 00 00", "Longitude Spacing:", "045 00 00"}));
}

TEST_F(ParameterReportTest, ConesHaveTheirParallels) {
    Start(ProjAlbers);
    SetBounds("70    00    00    N", "10    00    00    N", "010    00    00");
    // A sixth of 60 degrees inside the boundaries.
    EXPECT_THAT(Bounds(), Contains(ReportRow{"Central Latitude:", "40 00 00 N",
                                             "Northern Std Parallel:", "60 00 00 N"}));
    EXPECT_THAT(Bounds(), Contains(ReportRow{"Central Longitude:", "000 00 00 E",
                                             "Southern Std Parallel:", "20 00 00 N"}));
}

TEST_F(ParameterReportTest, ZoneIsInMetres) {
    Start(ProjUtm);
    EXPECT_THAT(
        Bounds(),
        ElementsAre(ReportRow{"Spheroid:", "Clarke 1866", "Eq Radius (m):", "6,378,206"},
                    ReportRow{"1/F:", "294.9787", "Scale Factor of Central Longitude:", "0.9996"},
                    ReportRow{"Northern Boundary (m):", "06,200,000", "Western Boundary (m):", "0,300,000"},
                    ReportRow{"Southern Boundary (m):", "05,600,000", "Eastern Boundary (m):", "0,800,000"},
                    ReportRow{"Grid Spacing (m):", "00,100,000", "Grid Spacing (m):", "0,100,000"},
                    ReportRow{"False Easting (m):", "0,500,000", "Central Longitude:", "009 00 00 W"},
                    ReportRow{"False Northing (m):", "00,000,000", "Latitude of Map Origin:", "00 00 00 N"}));
}

TEST_F(ParameterReportTest, PerspectiveHasItsHeightInThreeUnitsAndItsHorizonAsRange) {
    Start(ProjVerticalPerspective);
    EXPECT_NEAR(Design.VpP, 6.625491, 5e-7);
    EXPECT_EQ(Design.RangeSec, 292749);
    // 35840 / 1.8532488 = 19339.01 nautical miles, times 1.1515554159 = 22269.94 statute miles;
    // 292749 seconds are 81 degrees 19 minutes 9 seconds.
    EXPECT_THAT(
        Bounds(),
        ElementsAre(ReportRow{"Distance above earth's surface (kilometers):", "35,840"},
                    ReportRow{"Distance above earth's surface (statute miles):", "22,270"},
                    ReportRow{"Distance above earth's surface (nautical miles):", "19,339"},
                    ReportRow{"Range of Projection:", "081 19 09"},
                    ReportRow{"Central Latitude:", "40 00 00 N", "Latitude Spacing:", "030 00 00"},
                    ReportRow{"Central Longitude:", "000 00 00 E", "Longitude Spacing:", "045 00 00"}));
}

TEST_F(ParameterReportTest, OtherDiscsHaveNoHeight) {
    Start(ProjStereographic, 75);
    EXPECT_THAT(Bounds(), SizeIs(3));
    EXPECT_THAT(Bounds(), Contains(ReportRow{"Range of Projection:", "075 00 00"}));
}

TEST_F(ParameterReportTest, InterruptionsAreThoseInUse) {
    Start(ProjInterruptedMollweide);
    Design.LobeText = {"1",
                       "0",
                       "100    00    00    E",
                       "100    00    00    W",
                       "000    00    00    W",
                       "140    00    00    E",
                       "070    00    00    W",
                       "000    00    00    W"};
    EXPECT_THAT(Section(" Longitude Interruptions "),
                ElementsAre(ReportRow{"Northern Hemisphere:", "100 00 00 W"},
                            ReportRow{"Southern Hemisphere:", "None"}));
    Design.LobeText[LobeTextCountSouth] = "2";
    EXPECT_THAT(Section(" Longitude Interruptions "),
                Contains(ReportRow{"Southern Hemisphere:", "070 00 00 W", "000 00 00 W"}));
}

TEST_F(ParameterReportTest, ExtentIsAbsoluteAndAsShareOfTheXAxis) {
    Start(ProjEquirectangular);
    Design.MapXMin = 0.0;
    Design.MapXMax = 4.0;
    Design.MapYMin = -1.0;
    Design.MapYMax = 1.5;
    Design.XAxisLength = 10.0;
    EXPECT_THAT(Section(" Transformed x,y Map Coordinates "),
                ElementsAre(ReportRow{"Absolute Values", "", "Relative Axis Length"},
                            ReportRow{"Max x:", "4.0000", "Max x:", "10.0000000"},
                            ReportRow{"Max y:", "1.5000", "Max y:", "3.7500000"},
                            ReportRow{"x-axis Length:", "4.0000", "x-axis Length:", "10.0000000"},
                            ReportRow{"Min x:", "0.0000", "Min x:", "0.0000000"},
                            ReportRow{"Min y:", "-1.0000", "Min y:", "-2.5000000"},
                            ReportRow{"y-axis Length:", "2.5000", "y-axis Length:", "6.2500000"}));
}

TEST_F(ParameterReportTest, ExtentInMetresIsWhole) {
    Start(ProjUtm);
    EXPECT_THAT(Section(" Transformed x,y Map Coordinates "),
                Contains(ReportRow{"Max x:", "0,800,000", "Max x:", "1.6000000"}));
    EXPECT_THAT(Section(" Transformed x,y Map Coordinates "),
                Contains(ReportRow{"Max y:", "6,200,000", "Max y:", "12.4000000"}));
}

TEST_F(ParameterReportTest, ScaleErrorsAreATableWithItsNotes) {
    Start(ProjMercator);
    const std::vector<ReportRow> rows = Section(" Scale Errors ");
    ASSERT_THAT(rows, SizeIs(2 + 9 + 2));
    EXPECT_EQ(rows[0], (ReportRow{"", "", "", "Ratio (map value/true value)"}));
    EXPECT_EQ(rows[1], (ReportRow{"#", "Latitude", "Longitude", "Latitude", "Longitude", "Area"}));
    EXPECT_EQ(rows[3],
              (ReportRow{"02", "60 00 00 S", "000 00 00 E", "2.0000E+00", "2.0000E+00", "4.0000E+00"}));
    EXPECT_EQ(rows[12], (ReportRow{"The scale is symmetrical about the equator."}));
    Start(ProjUtm);
    EXPECT_EQ(Section(" Scale Errors ")[1],
              (ReportRow{"#", "Northing", "Easting", "Northing", "Easting", "Area"}));
}

TEST_F(ParameterReportTest, LobesHaveATextInPlaceOfTheTable) {
    Start(ProjInterruptedMollweide);
    const std::vector<ReportRow> rows = Section(" Scale Errors ");
    ASSERT_THAT(rows, SizeIs(8));
    EXPECT_EQ(rows[0],
              ReportRow{"The scale is true along latitudes 40°44' North and South.  The scale is constant"});
    EXPECT_EQ(rows[7], ReportRow{"will list scale errors for the lobe of interest."});
}

TEST_F(ParameterReportTest, GreatCircleHasItsEndsAndItsLengthInFourUnits) {
    Start(ProjEquirectangular);
    Design.GcText = {"10    00    00    N", "020    00    00    W", "40    00    00    N",
                     "020    00    00    W"};
    Design.GcStartLat = 10.0;
    Design.GcEndLat = 40.0;
    Design.GcStartLon = Design.GcEndLon = -20.0;
    Design.GcDefined = true;
    GcCalc();
    // 30 degrees are 1800 nautical miles, 2072.8 statute miles, 3335.8 kilometres.
    EXPECT_THAT(
        Section(" Great Circle Information "),
        ElementsAre(ReportRow{"Starting latitude:", "10 00 00 N", "Starting longitude:", "020 00 00 W"},
                    ReportRow{"Ending latitude:", "40 00 00 N", "Ending longitude:", "020 00 00 W"},
                    ReportRow{"Length of great circle (deg min sec):", "030 00 00"},
                    ReportRow{"Length of great circle (kilometers):", "03,336"},
                    ReportRow{"Length of great circle (statute miles):", "02,073"},
                    ReportRow{"Length of great circle (nautical miles):", "01,800"}));
}

TEST_F(ParameterReportTest, GreatCircleWithoutATableHasNoLength) {
    Start(ProjEquirectangular);
    Design.GcDefined = true;
    Design.GcTable = {};
    EXPECT_THAT(Section(" Great Circle Information "), SizeIs(2));
}

TEST_F(ParameterReportTest, SmallCircleHasItsRadiusInFourUnits) {
    Start(ProjEquirectangular);
    Design.ScDefined = true;
    // 15 degrees are 900 nautical miles, 1036.4 statute miles, 1667.9 kilometres.
    EXPECT_THAT(Section(" Small Circle Information "),
                ElementsAre(ReportRow{"Latitude of circle center:", "37 47 00 N"},
                            ReportRow{"Longitude of circle center:", "122 26 00 W"},
                            ReportRow{"Number of concentric circles:", "3"},
                            ReportRow{"Radius of outer circle (deg min sec):", "015 00 00"},
                            ReportRow{"Radius of outer circle (kilometers):", "01,667.9"},
                            ReportRow{"Radius of outer circle (statute miles):", "01,036.4"},
                            ReportRow{"Radius of outer circle (nautical miles):", "00,900.0"}));
}

TEST_F(ParameterReportTest, FilesAreListedOneALineOrMissed) {
    Start(ProjEquirectangular);
    Design.InputFiles.clear();
    EXPECT_THAT(Section(" List of Digital Map Files "),
                ElementsAre(ReportRow{"There are no digital map input files!"}));
    Design.InputFiles.resize(40);
    Design.InputFiles[0].MapFileName = "C:\\MAPS\\{a}.map";
    Design.InputFiles[39].MapFileName = "/maps/line\nbreak\tand tab.pkv";
    const std::vector<ReportRow> rows = Section(" List of Digital Map Files ");
    ASSERT_THAT(rows, SizeIs(40));
    EXPECT_EQ(rows[0], ReportRow{"C:\\MAPS\\{a}.map"});
    EXPECT_EQ(rows[39], ReportRow{"/maps/line break and tab.pkv"});
}

TEST_F(ParameterReportTest, DesignFileIsNamedOrMissed) {
    Start(ProjEquirectangular);
    EXPECT_THAT(Section(" Name of Map Design Configuration File "),
                ElementsAre(ReportRow{"No map design CNF file has been loaded!"}));
    Design.CnfFileName = "/home/user/atlas.cnf";
    EXPECT_THAT(Section(" Name of Map Design Configuration File "),
                ElementsAre(ReportRow{"/home/user/atlas.cnf"}));
}

TEST_F(ParameterReportTest, DrawingAreaIsWhole) {
    Start(ProjEquirectangular);
    EXPECT_THAT(
        Section(" x, y Pixel Size of Map Drawing Area "),
        ElementsAre(ReportRow{"Horizontal pixel size:", "1280"}, ReportRow{"Vertical pixel size:", "924"}));
}

TEST_F(ParameterReportTest, EveryProjectionHasOneThatLeavesTheDesignAsItWas) {
    for (const ProjectionEntry& entry : Projections) {
        SCOPED_TRACE(entry.ProjName);
        Start(entry.ProjNum);
        const MapDesign before = Design;
        const std::string first = PlainText(ParameterReport());
        EXPECT_THAT(first, HasSubstr("Projection Type: " + std::string(entry.ProjName) + "\r\n"));
        EXPECT_EQ(Design.ConicG, before.ConicG);
        EXPECT_EQ(Design.GridText, before.GridText);
        EXPECT_EQ(Design.LatNorth, before.LatNorth);
        EXPECT_EQ(Design.LonMiddle, before.LonMiddle);
        EXPECT_EQ(Design.MapXMax, before.MapXMax);
        EXPECT_EQ(Design.ProjLat, before.ProjLat);
        EXPECT_EQ(Design.ProjX, before.ProjX);
        EXPECT_EQ(Design.ProjOffMap, before.ProjOffMap);
        EXPECT_EQ(PlainText(ParameterReport()), first);
        EXPECT_THAT(machine.boxes.Taken(), IsEmpty());
    }
}

TEST_F(ParameterReportTest, TellsNothingOfTheProjectionBefore) {
    Start(ProjEquirectangular);
    SetBounds("65    00    00    N", "00    00    00    N", "005    00    00");
    ParameterReport();
    SetBounds("60    00    00    N", "00    00    00    N", "030    00    00");
    EXPECT_THAT(Section(" Scale Errors "), SizeIs(2 + 3 + 2));
    Start(ProjRobinson);
    EXPECT_THAT(Section(" Scale Errors "), Not(Contains(ReportRow{"and is symmetrical about the equator."})));
}

} // namespace
} // namespace quelmont
