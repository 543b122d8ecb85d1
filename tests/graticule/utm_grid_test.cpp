#include "graticule/utm_grid.h"

#include "core/map_design.h"
#include "graticule/grid_texts.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UtmGrid : public FreshProgramTest {
protected:
    UtmGrid() { StartDesign(ProjUtm); }

    void ExpectRefused(const std::string& text, const std::string& field) {
        for (const BoxAnswer answer : {BoxAnswer::Retry, BoxAnswer::Cancel}) {
            Design.ProjOffMap = false;
            Design.LastRefusal = {};
            machine.boxes.Answer(answer);
            CalcUtmGrid();
            EXPECT_TRUE(Design.ProjOffMap) << text;
            EXPECT_THAT(machine.boxes.Taken(),
                        ElementsAre(AskedBox{"Error: UTM projection", text, BoxButtons::RetryCancel,
                                             BoxIcon::Exclamation, answer}));
            EXPECT_EQ(Design.LastRefusal.Field, field);
            EXPECT_THAT(Design.LastRefusal.Restored, ElementsAre(field));
            EXPECT_EQ(Design.LastRefusal.Retry, answer == BoxAnswer::Retry);
        }
    }
};

TEST_F(UtmGrid, DefaultIsSixBySix) {
    CalcUtmGrid();
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_EQ(Design.LatNorthSec, 6200000);
    EXPECT_EQ(Design.LatSouthSec, 5600000);
    EXPECT_EQ(Design.LatGridSec, 100000);
    EXPECT_EQ(Design.LonWestSec, 300000);
    EXPECT_EQ(Design.LonEastSec, 800000);
    EXPECT_EQ(Design.LonGridSec, 100000);
    EXPECT_EQ(Design.LonZeroSec, 300000) << "the origin is the western easting";
    EXPECT_EQ(Design.LonSpanSec, 800000);
    EXPECT_EQ(Design.LatGridCount, 6);
    EXPECT_EQ(Design.LonGridCount, 5);
    EXPECT_EQ(Design.LatGrid, 100000.0);
    EXPECT_EQ(Design.LatNorth, 6200000.0);
    EXPECT_EQ(Design.LatSouth, 5600000.0);
    EXPECT_EQ(Design.LonGrid, 100000.0);
    EXPECT_EQ(Design.LonWest, 300000.0);
    EXPECT_EQ(Design.LonEast, 800000.0);
    EXPECT_EQ(Design.LonSpan, 800000.0);
    EXPECT_EQ(Design.LonZero, 300000.0);
    EXPECT_EQ(Design.LastRefusal.Field, "");
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(UtmGrid, CentralLongitudeStaysTheZones) {
    Design.LonCentral = -9.0;
    Design.LatCentral = 10.0;
    CalcUtmGrid();
    EXPECT_EQ(Design.LonCentral, -9.0);
    EXPECT_EQ(Design.LatCentral, 10.0);
}

TEST_F(UtmGrid, BrokenMetresAreRoundedTiesToEven) {
    Design.UtmText[UtmTextNorth] = "6200000.5";
    Design.UtmText[UtmTextNorthingSpacing] = "99999.7";
    CalcUtmGrid();
    EXPECT_EQ(Design.LatNorthSec, 6200000);
    EXPECT_EQ(Design.LatGridSec, 100000);
}

constexpr const char* NoNorthSpacing = "The METERS BETWEEN NORTH/SOUTH GRID MARKS must be > 0.";
constexpr const char* NoEastSpacing = "The METERS BETWEEN EAST/WEST GRID MARKS must be > 0.";
constexpr const char* NorthSpacing = "The METERS BETWEEN NORTH/SOUTH GRID MARKS does not yield an integral "
                                     "number of divisions along the axis.";
constexpr const char* EastSpacing =
    "The METERS BETWEEN EAST/WEST GRID MARKS does not yield an integral number of divisions along the axis.";

/// Everything is wrong at first; mending one fault after the other brings all eight in order.
TEST_F(UtmGrid, RefusalsComeInOrder) {
    Design.UtmText[UtmTextNorth] = "05000000";
    Design.UtmText[UtmTextNorthingSpacing] = "00000000";
    Design.UtmText[UtmTextEast] = "0200000";
    Design.UtmText[UtmTextEastingSpacing] = "0000000";
    ExpectRefused(NoNorthSpacing, "UtmLatGrid");
    Design.UtmText[UtmTextNorthingSpacing] = "00070000";
    ExpectRefused(NoEastSpacing, "UtmLonGrid");
    Design.UtmText[UtmTextEastingSpacing] = "0070000";
    ExpectRefused(NorthSpacing, "UtmLatGrid");
    Design.UtmText[UtmTextNorthingSpacing] = "00100000";
    ExpectRefused("The NORTHERN BOUNDARY is south of the SOUTHERN BOUNDARY.", "UtmLatN");
    Design.UtmText[UtmTextNorth] = "05600000";
    ExpectRefused("The NORTHERN and SOUTHERN BOUNDARIES are equal.", "UtmLatN");
    Design.UtmText[UtmTextNorth] = "06200000";
    ExpectRefused(EastSpacing, "UtmLonGrid");
    Design.UtmText[UtmTextEastingSpacing] = "0100000";
    ExpectRefused("The EASTERN BOUNDARY is west of the WESTERN BOUNDARY.", "UtmLonW");
    Design.UtmText[UtmTextEast] = "0300000";
    ExpectRefused("The EASTERN and WESTERN BOUNDARIES are equal.", "UtmLonW");
    Design.UtmText[UtmTextEast] = "0400000";
    Design.ProjOffMap = false;
    CalcUtmGrid();
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_EQ(Design.LastRefusal.Field, "");
}

TEST_F(UtmGrid, RefusalLeavesTheDegreesOfTheLastGoodRun) {
    CalcUtmGrid();
    Design.UtmText[UtmTextNorth] = "05000000";
    CalcUtmGrid();
    EXPECT_EQ(Design.LatNorthSec, 5000000);
    EXPECT_EQ(Design.LatNorth, 6200000.0);
    EXPECT_EQ(Design.LatGridCount, 6);
}

TEST_F(UtmGrid, NumberTooLargeShowsTheBoxOfTheRoutine) {
    Design.UtmText[UtmTextNorth] = "9999999999";
    CalcUtmGrid();
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in CalcUtmGrid", "Error: Overflow"}));
    EXPECT_FALSE(Design.ProjOffMap);
}

TEST_F(UtmGrid, HeightThatDoesNotFitIsStillDivided) {
    Design.UtmText[UtmTextNorth] = "2147483647";
    Design.UtmText[UtmTextSouth] = "-2147483648";
    Design.UtmText[UtmTextNorthingSpacing] = "1";
    CalcUtmGrid();
    // 4294967295 spacings do not fit their count.
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{"Error in CalcUtmGrid", "Error: Overflow"}));
}

} // namespace
} // namespace quelmont
