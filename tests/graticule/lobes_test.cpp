#include "core/map_design.h"
#include "core/run_time_error.h"
#include "graticule/calc_graticule.h"
#include "graticule/grid_texts.h"
#include "graticule/lobes.h"
#include "projection/inverse_place.h"
#include "projection/lobe_row.h"
#include "projection/param_select.h"
#include "projection/project_select.h"
#include "projection/reference_projection.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The default interruptions: a map from 20 E all the way round, two interruptions each, so that
/// lobes 1 to 3 lie in the north and 5 to 7 in the south.
class Lobes : public FreshProgramTest {
protected:
    Lobes() {
        StartDesign(ProjInterruptedMollweide);
        Design.GridText[GridTextLatSpacing] = "010    00    00";
        Design.GridText[GridTextWest] = "020    00    00    E";
        Design.GridText[GridTextEast] = "020    00    00    E";
        Design.GridText[GridTextLonSpacing] = "010    00    00";
        SetRows({20, -100, 0, 20}, {20, 140, -70, 20});
    }

    /// Boundaries of each hemisphere in degrees, as the dialog leaves them.
    static void SetRows(const std::vector<int>& north, const std::vector<int>& south) {
        Design.LobeText[LobeTextCountNorth] = std::to_string(north.size() - 2);
        Design.LobeText[LobeTextCountSouth] = std::to_string(south.size() - 2);
        std::size_t at = 0;
        for (const std::vector<int>* row : {&north, &south}) {
            for (const int degrees : *row) {
                Design.LobeLonText[at] = LongitudeText(degrees * 3600);
                Design.LobeLonDeg[at] = degrees;
                ++at;
            }
        }
    }
};

TEST_F(Lobes, NorthernLobeEndsAtTheEquator) {
    CalcGraticuleInterrupt(1);
    EXPECT_EQ(Design.LatNorthSec, 324000);
    EXPECT_EQ(Design.LatSouthSec, 0);
    EXPECT_EQ(Design.LatGridCount, 9);
    EXPECT_EQ(Design.LonWestSec, 20 * 3600);
    EXPECT_EQ(Design.LonEastSec, -100 * 3600);
    EXPECT_EQ(Design.LonSpan, 240.0) << "across the 180th meridian";
    EXPECT_EQ(Design.LonGridCount, 24);
    EXPECT_EQ(Design.LonZero, 0.0);
    EXPECT_EQ(Design.LonCentral, 120.0);
    EXPECT_EQ(Design.LatCentral, 45.0);
    EXPECT_EQ(Design.LonMiddle, 140.0);
    EXPECT_EQ(Design.LatNorth, 90.0);
    EXPECT_EQ(Design.LatSouth, 0.0);
    EXPECT_EQ(Design.LatCentralText, "45 00 00 N");
    EXPECT_EQ(Design.LonCentralText, "140 00 00 E");
    EXPECT_EQ(Design.LonWestText, "020 00 00 E");
    EXPECT_EQ(Design.LonEastText, "100 00 00 W");
    EXPECT_EQ(Design.LatGridText, "010 00 00");
    EXPECT_NEAR(Design.SinLatCentral, std::sqrt(0.5), 1e-15);
}

TEST_F(Lobes, EveryLobeHasTheBoundariesAtItsNumber) {
    struct Row {
        std::int16_t lobe;
        double west, east, span, north, south;
    };
    // clang-format off
    constexpr std::array<Row, 6> rows = {{
        {1,   20.0, -100.0, 240.0, 90.0,   0.0},
        {2, -100.0,    0.0, 100.0, 90.0,   0.0},
        {3,    0.0,   20.0,  20.0, 90.0,   0.0},
        {5,   20.0,  140.0, 120.0,  0.0, -90.0},
        {6,  140.0,  -70.0, 150.0,  0.0, -90.0},
        {7,  -70.0,   20.0,  90.0,  0.0, -90.0},
    }};
    // clang-format on
    for (const Row& row : rows) {
        CalcGraticuleInterrupt(row.lobe);
        EXPECT_EQ(Design.LonWest, row.west) << row.lobe;
        EXPECT_EQ(Design.LonEast, row.east) << row.lobe;
        EXPECT_EQ(Design.LonSpan, row.span) << row.lobe;
        EXPECT_EQ(Design.LatNorth, row.north) << row.lobe;
        EXPECT_EQ(Design.LatSouth, row.south) << row.lobe;
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Lobes, BoundsInOneHemisphereBoundItsLobesAndLeaveTheOthersNoHeight) {
    Design.GridText[GridTextNorth] = "80    30    00    N";
    Design.GridText[GridTextSouth] = "60    00    10    N";
    CalcGraticuleInterrupt(2);
    EXPECT_EQ(Design.LatNorthSec, 80 * 3600 + 1800);
    EXPECT_EQ(Design.LatSouthSec, 60 * 3600 + 10);
    CalcGraticuleInterrupt(5);
    EXPECT_EQ(Design.LatNorthSec, 0);
    EXPECT_EQ(Design.LatSouthSec, 0);
    Design.GridText[GridTextNorth] = "60    00    10    S";
    Design.GridText[GridTextSouth] = "80    30    00    S";
    CalcGraticuleInterrupt(2);
    EXPECT_EQ(Design.LatNorthSec, 0);
    EXPECT_EQ(Design.LatSouthSec, 0);
    CalcGraticuleInterrupt(5);
    EXPECT_EQ(Design.LatNorthSec, -(60 * 3600 + 10));
    EXPECT_EQ(Design.LatSouthSec, -(80 * 3600 + 1800));
}

TEST_F(Lobes, LobeLowerThanOneSpacingCountsOne) {
    Design.GridText[GridTextNorth] = "69    00    00    N";
    Design.GridText[GridTextSouth] = "06    00    00    S";
    Design.GridText[GridTextLatSpacing] = "015    00    00";
    CalcGraticuleInterrupt(1);
    EXPECT_EQ(Design.LatGridCount, 5) << "69 / 15 = 4.6";
    CalcGraticuleInterrupt(5);
    EXPECT_EQ(Design.LatGridCount, 1) << "6 / 15 = 0.4";
    EXPECT_EQ(Design.LatSouth, -6.0);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Lobes, RowWithoutInterruptionsIsOneLobe) {
    SetRows({20, 20}, {20, 20});
    CalcGraticuleInterrupt(1);
    EXPECT_EQ(Design.LonSpan, 360.0) << "equal boundaries are a full circle";
    EXPECT_EQ(Design.LatSouth, 0.0);
    CalcGraticuleInterrupt(3);
    EXPECT_EQ(Design.LonSpan, 360.0);
    EXPECT_EQ(Design.LatNorth, 0.0);
}

TEST_F(Lobes, ThreeInterruptionsEachFillTheList) {
    SetRows({-180, -90, 0, 90, 180}, {-180, -100, -20, 80, 180});
    CalcGraticuleInterrupt(4);
    EXPECT_EQ(Design.LonWest, 90.0);
    EXPECT_EQ(Design.LatNorth, 90.0);
    CalcGraticuleInterrupt(9);
    EXPECT_EQ(Design.LonWest, 80.0);
    EXPECT_EQ(Design.LonEast, 180.0);
    EXPECT_EQ(Design.LatNorth, 0.0);
}

TEST_F(Lobes, NumberOutsideTheListShowsTheBoxOfTheRoutine) {
    for (const int lobe : {0, -1, 10, 32767}) {
        CalcGraticuleInterrupt(static_cast<std::int16_t>(lobe));
        EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"Error in CalcGraticuleInterrupt",
                                                                "Error: Subscript out of range"}));
    }
    Design.LobeText[LobeTextCountNorth] = "4";
    CalcGraticuleInterrupt(1);
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(AskedBox{"Error in CalcGraticuleInterrupt", "Error: Subscript out of range"}));
}

TEST_F(Lobes, CountsOfInterruptionsAreZeroToThree) {
    Design.LobeText = {"0", "3"};
    EXPECT_EQ(LobeInterruptions(0), 0);
    EXPECT_EQ(LobeInterruptions(1), 3);
    // One lobe in the north, four in the south, and number 2 between them left free.
    EXPECT_EQ(LobesOf(0).first, 1U);
    EXPECT_EQ(LobesOf(0).last, 1U);
    EXPECT_EQ(LobesOf(1).first, 3U);
    EXPECT_EQ(LobesOf(1).last, 6U);
    Design.LobeText[LobeTextCountSouth] = "-1";
    EXPECT_THROW(LobeInterruptions(1), RunTimeError);
}

// ---- Places of the lobes.

/// x of the equator is 2 sqrt 2 / 180 for each degree from the middle of the whole map, which lies
/// 180 degrees from its western boundary.
double Place(double degreesFromWest) { return 2.0 * std::numbers::sqrt2 / 180.0 * (degreesFromWest - 180.0); }

class LobePlaces : public Lobes {
protected:
    static void ExpectPlaces(std::initializer_list<double> expected) {
        std::size_t at = 0;
        for (const double place : expected) {
            EXPECT_NEAR(Design.LobeCentral[at], place, 1e-14) << "lobe " << at;
            ++at;
        }
        for (; at < Design.LobeCentral.size(); ++at) {
            EXPECT_EQ(Design.LobeCentral[at], 0.0) << "lobe " << at;
        }
    }
};

/// In the north 20 E to 100 W to 0 to 20 E, that is 0, 240, 340, 360 degrees from the west; in the
/// south 20 E to 140 E to 70 W to 20 E, that is 0, 120, 270, 360.
TEST_F(LobePlaces, EachStandsWhereItsMiddleWouldOnTheWholeMap) {
    CalcGraticule();
    LonInterruptOffset();
    ExpectPlaces(
        {0.0, Place(120.0), Place(290.0), Place(350.0), 0.0, Place(60.0), Place(195.0), Place(315.0)});
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(LobePlaces, WholeHemispheresStandInTheMiddle) {
    SetRows({20, 20}, {20, 20});
    CalcGraticule();
    Design.LobeCentral.fill(9.0);
    LonInterruptOffset();
    ExpectPlaces({0.0, 0.0, 0.0, 0.0});
}

TEST_F(LobePlaces, FullListHasNineLobes) {
    Design.GridText[GridTextWest] = "180    00    00    W";
    Design.GridText[GridTextEast] = "180    00    00    E";
    SetRows({-180, -90, 0, 90, 180}, {-180, -100, -20, 80, 180});
    CalcGraticule();
    LonInterruptOffset();
    ExpectPlaces({0.0, Place(45.0), Place(135.0), Place(225.0), Place(315.0), 0.0, Place(40.0), Place(120.0),
                  Place(210.0), Place(310.0)});
}

/// A map from 170 E to 10 E, 200 degrees wide, whose middle lies 100 degrees from the west.
TEST_F(LobePlaces, NarrowMapHasItsOwnMiddle) {
    Design.GridText[GridTextWest] = "170    00    00    E";
    Design.GridText[GridTextEast] = "010    00    00    E";
    SetRows({170, -110, 10}, {170, 10});
    CalcGraticule();
    ASSERT_EQ(Design.LonCentral, 100.0);
    LonInterruptOffset();
    const double degree = 2.0 * std::numbers::sqrt2 / 180.0;
    ExpectPlaces({0.0, degree * (40.0 - 100.0), degree * (140.0 - 100.0), 0.0, 0.0});
}

TEST_F(LobePlaces, OffsetOfAnEarlierLobePlaysNoPart) {
    CalcGraticule();
    Design.LobeOffsetX = 5.0;
    LonInterruptOffset();
    EXPECT_NEAR(Design.LobeCentral[1], Place(120.0), 1e-14);
    EXPECT_EQ(Design.LobeOffsetX, 0.0);
}

/// Where the pointer is, asked while each lobe is drawn: the design then holds the bounds of that lobe.
TEST_F(LobePlaces, EveryPointOfALobeIsFoundAgainWhileItIsDrawn) {
    CalcGraticule();
    LonInterruptOffset();
    ParamSelect();
    for (const std::size_t lobe : {1U, 2U, 3U, 5U, 6U, 7U}) {
        CalcGraticuleInterrupt(static_cast<std::int16_t>(lobe));
        Design.LobeOffsetX = Design.LobeCentral[lobe];
        for (double lat = Design.LatSouth; lat <= Design.LatNorth; lat += 7.5) {
            for (int i = 0; i <= 20; ++i) {
                Design.ProjLat = lat;
                Design.ProjLon = Design.LonSpan * i / 20.0;
                ProjectSelect();
                const auto place = PlaceAt(Design.ProjX, Design.ProjY);
                ASSERT_TRUE(place) << lobe << ": " << lat << ", " << Design.ProjLon;
                EXPECT_LE(DistanceDegrees({place->lat, place->lon}, {lat, Design.LonWest + Design.ProjLon}),
                          1e-9)
                    << lobe << ": " << lat << ", " << Design.ProjLon;
            }
        }
    }
}

TEST_F(LobePlaces, BadCountShowsTheBoxOfTheRoutine) {
    Design.LobeText[LobeTextCountSouth] = "7";
    LonInterruptOffset();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(AskedBox{"Error in LonInterruptOffset", "Error: Subscript out of range"}));
}

} // namespace
} // namespace quelmont
