#include "graticule/calc_graticule.h"

#include "core/map_design.h"
#include "graticule/grid_texts.h"
#include "projection/param_select.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::array<std::int16_t, 6> Azimuthals = {26, 27, 28, 29, 30, 31};

class Graticule : public FreshProgramTest {
protected:
    Graticule() { StartDesign(ProjEquirectangular); }

    static void Bounds(const char* north, const char* south, const char* west, const char* east) {
        Design.GridText[GridTextNorth] = north;
        Design.GridText[GridTextSouth] = south;
        Design.GridText[GridTextWest] = west;
        Design.GridText[GridTextEast] = east;
    }
    static void Spacing(const char* latitude, const char* longitude) {
        Design.GridText[GridTextLatSpacing] = latitude;
        Design.GridText[GridTextLonSpacing] = longitude;
    }
};

// ---- The texts' defaults.

TEST_F(Graticule, ConstantGridIsTheWholeWorld) {
    EXPECT_THAT(Design.GridText,
                ElementsAre("90    00    00    N", "90    00    00    S", "030    00    00",
                            "180    00    00    W", "180    00    00    E", "045    00    00",
                            "40    00    00    N", "000    00    00    W", "180    00    00", "00035840"));
}

TEST_F(Graticule, ConstantGridKeepsAnAcceptedHeight) {
    Design.GridText.fill("?");
    Design.GridText[GridTextHeight] = "00000400";
    Design.ProjGridSet[29] = true;
    ConstantGrid();
    EXPECT_EQ(Design.GridText[GridTextHeight], "00000400");
    EXPECT_EQ(Design.GridText[GridTextRange], "180    00    00");
    EXPECT_EQ(Design.GridText[GridTextNorth], "90    00    00    N");
    Design.ProjGridSet[29] = false;
    ConstantGrid();
    EXPECT_EQ(Design.GridText[GridTextHeight], "00035840");
}

// ---- A design that is accepted.

TEST_F(Graticule, DefaultIsTheWholeWorld) {
    CalcGraticule();
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_EQ(Design.LatNorthSec, 324000);
    EXPECT_EQ(Design.LatSouthSec, -324000);
    EXPECT_EQ(Design.LatGridSec, 108000);
    EXPECT_EQ(Design.LatGridCount, 6);
    EXPECT_EQ(Design.LonWestSec, -648000);
    EXPECT_EQ(Design.LonEastSec, 648000);
    EXPECT_EQ(Design.LonZeroSec, 0);
    EXPECT_EQ(Design.LonSpanSec, 1296000);
    EXPECT_EQ(Design.LonGridSec, 162000);
    EXPECT_EQ(Design.LonGridCount, 8);
    EXPECT_EQ(Design.LatNorth, 90.0);
    EXPECT_EQ(Design.LatSouth, -90.0);
    EXPECT_EQ(Design.LatGrid, 30.0);
    EXPECT_EQ(Design.LonWest, -180.0);
    EXPECT_EQ(Design.LonEast, 180.0);
    EXPECT_EQ(Design.LonZero, 0.0);
    EXPECT_EQ(Design.LonSpan, 360.0);
    EXPECT_EQ(Design.LonGrid, 45.0);
    EXPECT_EQ(Design.LonCentral, 180.0);
    EXPECT_EQ(Design.LatCentral, 0.0);
    EXPECT_EQ(Design.LonMiddle, 0.0);
    EXPECT_EQ(Design.VpDistanceKm, 35840.0);
    EXPECT_EQ(Design.RangeSec, 648000);
    EXPECT_EQ(Design.LatNorthText, "90 00 00 N");
    EXPECT_EQ(Design.LatSouthText, "90 00 00 S");
    EXPECT_EQ(Design.LatGridText, "030 00 00");
    EXPECT_EQ(Design.LonWestText, "180 00 00 W");
    EXPECT_EQ(Design.LonEastText, "180 00 00 E");
    EXPECT_EQ(Design.LonGridText, "045 00 00");
    EXPECT_EQ(Design.LatCentralText, "00 00 00 N");
    EXPECT_EQ(Design.LonCentralText, "000 00 00 E");
    EXPECT_EQ(Design.LastRefusal.Field, "");
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(Graticule, ReadsDegreesMinutesAndSeconds) {
    Bounds("45    30    20    N", "12    10    30    S", "100    20    30    W", "020    00    30    W");
    Spacing("000    00    25", "000    00    40");
    CalcGraticule();
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_EQ(Design.LatNorthSec, 163820);
    EXPECT_EQ(Design.LatSouthSec, -43830);
    EXPECT_EQ(Design.LatGridCount, 8306); // 207650 / 25
    EXPECT_EQ(Design.LonSpanSec, 289200); // 361230 - 72030
    EXPECT_EQ(Design.LonGridCount, 7230); // 289200 / 40
    EXPECT_EQ(Design.LatNorth, 163820.0 / 3600.0);
    EXPECT_EQ(Design.LonWest, -361230.0 / 3600.0);
    EXPECT_EQ(Design.LonSpan, 289200.0 / 3600.0);
    EXPECT_EQ(Design.LatNorthText, "45 30 20 N");
    EXPECT_EQ(Design.LonEastText, "020 00 30 W");
    EXPECT_NEAR(Design.LatCentral, 59995.0 / 3600.0, 1e-14); // 163820 - 103825
    EXPECT_EQ(Design.LatCentralText, "16 39 55 N");
    EXPECT_NEAR(Design.LonMiddle, -216630.0 / 3600.0, 1e-13); // -361230 + 144600
    EXPECT_EQ(Design.LonCentralText, "060 10 30 W");
}

TEST_F(Graticule, LettersAreComparedAsTheyStand) {
    Bounds("45    00    00    n", "15    00    00    s", "100    00    00    w", "110    00    00    e");
    Spacing("015    00    00", "005    00    00");
    CalcGraticule();
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_EQ(Design.LatSouth, 15.0) << "only a capital S is south";
    EXPECT_EQ(Design.LonWest, 100.0) << "only a capital W is west";
    EXPECT_EQ(Design.LonSpan, 10.0);
    EXPECT_EQ(Design.LatSouthText, "15 00 00 s");
}

TEST_F(Graticule, GroupWithoutDigitsCountsAsZero) {
    Bounds("30          30    N", "00    00    00    N", "000    00    00    E", "__     30    00    E");
    Spacing("000    00    30", "000    00    30");
    CalcGraticule();
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_EQ(Design.LatNorthSec, 30 * 3600 + 30);
    EXPECT_EQ(Design.LonEastSec, 30 * 60);
}

TEST_F(Graticule, CentralTermsAreSetForEveryProjection) {
    for (const int projNum : {1, 2, 6, 7, 8, 12, 16, 26, 31, 40, 41, 42}) {
        StartDesign(static_cast<std::int16_t>(projNum));
        Bounds("80    00    00    N", "20    00    00    N", "180    00    00    W", "180    00    00    E");
        Design.GridText[GridTextCentralLat] = "50    00    00    N";
        CalcGraticule();
        EXPECT_EQ(Design.LatCentral, 50.0) << projNum;
        EXPECT_EQ(Design.LatCentralRad, 50.0 * DegToRad) << projNum;
        EXPECT_NEAR(Design.CosLatCentral, 0.64278760968653932632, 1e-15) << projNum; // cos 50
        EXPECT_NEAR(Design.SinLatCentral, 0.76604444311897803520, 1e-15) << projNum; // sin 50
    }
}

TEST_F(Graticule, SpacingNeedOnlyDivideTheMapsOwnHeight) {
    Bounds("70    00    00    N", "00    00    00    N", "000    00    00    E", "070    00    00    E");
    Spacing("007    00    00", "007    00    00");
    CalcGraticule();
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_EQ(Design.LatGridCount, 10);
    EXPECT_EQ(Design.LonGridCount, 10);
}

// ---- The relative frame.

struct Frame {
    const char* west;
    const char* east;
    std::int32_t span;
    double middle;
};

TEST_F(Graticule, FrameRunsEastwardFromTheWesternBoundary) {
    // clang-format off
    constexpr std::array<Frame, 11> rows = {{
        {"180    00    00    W", "180    00    00    E", 1296000,    0.0},
        {"170    00    00    E", "170    00    00    W",   72000,  180.0}, // exactly 180 stays
        {"175    00    00    E", "165    00    00    W",   72000, -175.0}, // 185 comes round
        {"160    00    00    E", "180    00    00    W",   72000,  170.0},
        {"180    00    00    E", "160    00    00    W",   72000, -170.0}, // 190 comes round
        {"030    00    00    E", "030    00    00    E", 1296000, -150.0}, // 210 comes round
        {"100    00    00    W", "100    00    00    W", 1296000,   80.0},
        {"000    00    00    E", "000    00    00    W", 1296000,  180.0},
        {"180    00    00    E", "180    00    00    E", 1296000,    0.0}, // 360 comes round
        {"010    00    00    W", "010    00    00    E",   72000,    0.0},
        {"010    00    00    E", "010    00    00    W", 1224000,  180.0},
    }};
    // clang-format on
    for (const Frame& row : rows) {
        Bounds("90    00    00    N", "90    00    00    S", row.west, row.east);
        Spacing("030    00    00", "010    00    00");
        CalcGraticule();
        EXPECT_FALSE(Design.ProjOffMap) << row.west;
        EXPECT_EQ(Design.LonZeroSec, 0);
        EXPECT_EQ(Design.LonSpanSec, row.span) << row.west << " to " << row.east;
        EXPECT_EQ(Design.LonSpan, row.span / 3600.0);
        EXPECT_EQ(Design.LonCentral, row.span / 7200.0);
        EXPECT_EQ(Design.LonMiddle, row.middle) << row.west << " to " << row.east;
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

// ---- Azimuthal maps.

TEST_F(Graticule, AzimuthalMapIsTheGlobeAboutItsCentre) {
    for (const std::int16_t projNum : Azimuthals) {
        StartDesign(projNum);
        Bounds("10    00    00    N", "50    00    00    N", "001    02    03    W", "004    05    06    E");
        Design.GridText[GridTextCentralLat] = "33    15    00    S";
        Design.GridText[GridTextCentralLon] = "030    00    00    E";
        Design.GridText[GridTextRange] = "060    00    00";
        CalcGraticule();
        EXPECT_FALSE(Design.ProjOffMap) << "what stood in the bounds plays no part";
        EXPECT_EQ(Design.GridText[GridTextNorth], "90    00    00    N");
        EXPECT_EQ(Design.GridText[GridTextSouth], "90    00    00    S");
        EXPECT_EQ(Design.GridText[GridTextWest], "150    00    00    W");
        EXPECT_EQ(Design.GridText[GridTextEast], "150    00    00    W");
        EXPECT_EQ(Design.LatNorthSec, 324000);
        EXPECT_EQ(Design.LatSouthSec, -324000);
        EXPECT_EQ(Design.LonWestSec, -540000);
        EXPECT_EQ(Design.LonEastSec, -540000);
        EXPECT_EQ(Design.LonSpanSec, 1296000);
        EXPECT_EQ(Design.LonCentral, 180.0);
        EXPECT_EQ(Design.LatCentral, -33.25);
        EXPECT_EQ(Design.LonMiddle, 30.0);
        EXPECT_EQ(Design.RangeSec, 216000);
        EXPECT_NEAR(Design.CosRange, 0.5, 1e-15);
        EXPECT_EQ(Design.LatCentralText, "33 15 00 S");
        EXPECT_EQ(Design.LonCentralText, "030 00 00 E");
        EXPECT_EQ(Design.LonWestText, "150 00 00 W");
    }
}

struct CentreRow {
    const char* centre;
    const char* west;
    const char* east;
    std::int32_t westSec, eastSec;
};

/// Half a circle to either side. The minutes and seconds of the texts are the centre's own, also
/// where those of the boundary would be their complement.
TEST_F(Graticule, BoundaryTextsTakeTheMinutesOfTheCentre) {
    // clang-format off
    constexpr std::array<CentreRow, 7> rows = {{
        {"000    00    00    W", "180    00    00    W", "180    00    00    E", -648000, 648000},
        {"030    00    00    W", "150    00    00    E", "150    00    00    E",  540000, 540000},
        {"180    00    00    E", "000    00    00    E", "000    00    00    E",       0,      0},
        {"180    00    00    W", "000    00    00    E", "000    00    00    E",       0,      0},
        {"122    26    30    W", "057    26    30    E", "057    26    30    E",  207210, 207210},
        {"000    00    01    E", "179    00    01    W", "179    00    01    W", -647999, -647999},
        {"171    59    59    E", "008    59    59    W", "008    59    59    W",  -28801,  -28801},
    }};
    // clang-format on
    for (const CentreRow& row : rows) {
        StartDesign(ProjAzimuthalEquidistant);
        Design.GridText[GridTextCentralLon] = row.centre;
        CalcGraticule();
        EXPECT_EQ(Design.GridText[GridTextWest], row.west) << row.centre;
        EXPECT_EQ(Design.GridText[GridTextEast], row.east) << row.centre;
        EXPECT_EQ(Design.LonWestSec, row.westSec) << row.centre;
        EXPECT_EQ(Design.LonEastSec, row.eastSec) << row.centre;
        EXPECT_EQ(Design.LonSpanSec, 1296000) << row.centre;
    }
}

// ---- Refusals.

constexpr const char* Below = "The NORTHERNMOST BOUNDARY of the grid is south of the SOUTHERNMOST BOUNDARY.";
constexpr const char* Equal = "The NORTHERNMOST and SOUTHERNMOST BOUNDARIES of the grid are equal.";
constexpr const char* LatitudeGrid =
    "The DEGREES OF LATITUDE BETWEEN GRID MARKS do not yield an integral number of divisions along the "
    "latitude axis.";
constexpr const char* LongitudeGrid =
    "The DEGREES OF LONGITUDE BETWEEN GRID MARKS do not yield an integral number of divisions along the "
    "longitude axis.";

class GraticuleRefusal : public Graticule {
protected:
    /// Runs it once with each answer and expects one box.
    void ExpectRefused(const std::string& title, const std::string& text, const std::string& field,
                       const std::vector<std::string>& restored) {
        for (const BoxAnswer answer : {BoxAnswer::Retry, BoxAnswer::Cancel}) {
            Design.ProjOffMap = false;
            Design.LastRefusal = {};
            machine.boxes.Answer(answer);
            CalcGraticule();
            EXPECT_TRUE(Design.ProjOffMap) << text;
            EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{title, text, BoxButtons::RetryCancel,
                                                                    BoxIcon::Exclamation, answer}));
            EXPECT_EQ(Design.LastRefusal.Field, field);
            EXPECT_EQ(Design.LastRefusal.Restored, restored);
            EXPECT_EQ(Design.LastRefusal.Retry, answer == BoxAnswer::Retry);
        }
    }
};

TEST_F(GraticuleRefusal, NorthBelowSouth) {
    Bounds("10    00    00    N", "40    00    00    N", "180    00    00    W", "180    00    00    E");
    ExpectRefused("Error: Latitude", Below, "LatN", {"LatN", "LatS"});
}

TEST_F(GraticuleRefusal, NorthEqualToSouth) {
    Bounds("40    00    00    N", "40    00    00    N", "180    00    00    W", "180    00    00    E");
    ExpectRefused("Error: Latitude", Equal, "LatN", {"LatN", "LatS"});
}

TEST_F(GraticuleRefusal, LatitudeGridThatDoesNotDivide) {
    Spacing("007    00    00", "045    00    00");
    ExpectRefused("Error: Degrees of latitude", LatitudeGrid, "LatGr", {"LatGr"});
}

TEST_F(GraticuleRefusal, LatitudeGridOffByASecond) {
    Spacing("030    00    01", "045    00    00");
    ExpectRefused("Error: Degrees of latitude", LatitudeGrid, "LatGr", {"LatGr"});
}

TEST_F(GraticuleRefusal, LongitudeGridThatDoesNotDivide) {
    Spacing("030    00    00", "007    00    00");
    ExpectRefused("Error: Degrees of longitude", LongitudeGrid, "LonGr", {"LonGr"});
}

TEST_F(GraticuleRefusal, SpacingWiderThanTheMap) {
    Bounds("40    00    00    N", "10    00    00    N", "000    00    00    E", "030    00    00    E");
    Spacing("031    00    00", "030    00    00");
    ExpectRefused("Error: Degrees of latitude", LatitudeGrid, "LatGr", {"LatGr"});
    Spacing("030    00    00", "031    00    00");
    ExpectRefused("Error: Degrees of longitude", LongitudeGrid, "LonGr", {"LonGr"});
}

TEST_F(GraticuleRefusal, AzimuthalGridMustDivideTheGlobe) {
    for (const std::int16_t projNum : Azimuthals) {
        StartDesign(projNum);
        Spacing("007    00    00", "045    00    00");
        ExpectRefused(
            "Error: Degrees of latitude",
            "The DEGREES OF LATITUDE BETWEEN GRID MARKS must yield an integer when divided into 180 "
            "degrees.",
            "LatGr", {"LatGr"});
        Spacing("030    00    00", "007    00    00");
        ExpectRefused(
            "Error: Degrees of longitude",
            "The DEGREES OF LONGITUDE BETWEEN GRID MARKS must yield an integer when divided into 360 "
            "degrees.",
            "LonGr", {"LonGr"});
    }
}

TEST_F(GraticuleRefusal, FromOneHundredAndEightyEastToTheSameWest) {
    Bounds("90    00    00    N", "90    00    00    S", "180    00    00    E", "180    00    00    W");
    ExpectRefused(
        "Error: Longitude",
        "Quelmont cannot plot a map in which the westernmost longitude is 180°E and the easternmost "
        "longitude is 180°W, since the longitude range of this map is zero.\n\nTry setting the "
        "westernmost longitude to 180°W and the easternmost longitude to 180°E.",
        "LonW", {"LonW", "LonE"});
}

/// Each line of the design is wrong; mending one after the other brings the boxes in their order.
TEST_F(GraticuleRefusal, FirstTestThatFailsWins) {
    Bounds("10    00    00    N", "40    00    00    N", "180    00    00    E", "180    00    00    W");
    Spacing("007    00    00", "007    00    00");
    ExpectRefused("Error: Latitude", Below, "LatN", {"LatN", "LatS"});
    Design.GridText[GridTextNorth] = "40    00    00    N";
    ExpectRefused("Error: Latitude", Equal, "LatN", {"LatN", "LatS"});
    Design.GridText[GridTextNorth] = "50    00    00    N";
    ExpectRefused("Error: Degrees of latitude", LatitudeGrid, "LatGr", {"LatGr"});
    Design.GridText[GridTextLatSpacing] = "010    00    00";
    // The width of that map is 0, which every spacing divides.
    CalcGraticule();
    EXPECT_EQ(machine.boxes.Taken().front().title, "Error: Longitude");
    Design.GridText[GridTextEast] = "170    00    00    W";
    ExpectRefused("Error: Degrees of longitude", LongitudeGrid, "LonGr", {"LonGr"});
    Design.GridText[GridTextLonSpacing] = "005    00    00";
    Design.ProjOffMap = false;
    CalcGraticule();
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_EQ(Design.LastRefusal.Field, "") << "an accepted design leaves no refusal";
}

TEST_F(GraticuleRefusal, NothingAfterTheFailingTestIsComputed) {
    CalcGraticule();
    Bounds("10    00    00    N", "40    00    00    N", "010    00    00    W", "020    00    00    E");
    CalcGraticule();
    EXPECT_TRUE(Design.ProjOffMap);
    EXPECT_EQ(Design.LatNorthSec, 36000) << "the seconds have been reached";
    EXPECT_EQ(Design.LonSpanSec, 108000);
    EXPECT_EQ(Design.LatNorth, 90.0) << "the degrees have not";
    EXPECT_EQ(Design.LonSpan, 360.0);
    EXPECT_EQ(Design.LatNorthText, "90 00 00 N");
}

TEST_F(GraticuleRefusal, AcceptedDesignDoesNotClearTheFlag) {
    Design.ProjOffMap = true;
    CalcGraticule();
    EXPECT_TRUE(Design.ProjOffMap) << "whoever tests it clears it";
}

// ---- Run-time failures.

TEST_F(GraticuleRefusal, ZeroSpacingShowsTheBoxAndGoesOnAsIfAccepted) {
    CalcGraticule();
    for (const auto& [latitude, longitude] :
         {std::pair{"000    00    00", "045    00    00"}, std::pair{"030    00    00", "000    00    00"}}) {
        for (const std::int16_t projNum : {ProjEquirectangular, ProjAzimuthalEquidistant}) {
            Design.ProjNum = projNum;
            // The bounds are upside down too: the division comes first.
            Bounds("10    00    00    N", "40    00    00    N", "010    00    00    W",
                   "020    00    00    E");
            Spacing(latitude, longitude);
            CalcGraticule();
            EXPECT_THAT(machine.boxes.Taken(),
                        ElementsAre(AskedBox{"Error in CalcGraticule", "Error: Division by zero"}));
            EXPECT_FALSE(Design.ProjOffMap);
            EXPECT_EQ(Design.LastRefusal.Field, "");
            EXPECT_EQ(Design.LatNorth, 90.0) << "the numbers of the last good run";
            EXPECT_EQ(Design.LonSpan, 360.0);
            EXPECT_EQ(Design.LatGridCount, 6);
        }
    }
}

TEST_F(GraticuleRefusal, NumberTooLargeIsAnOverflow) {
    Design.GridText[GridTextWest] = "9E9    00    00    W";
    CalcGraticule();
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"Error in CalcGraticule", "Error: Overflow"}));
    Bounds("90    00    00    N", "90    00    00    S", "5E5    00    00    W", "5E5    00    00    E");
    CalcGraticule();
    EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{"Error in CalcGraticule", "Error: Overflow"}))
        << "the width does not fit, although its ends do";
}

TEST_F(GraticuleRefusal, NoTextMakesItCrash) {
    for (const char* text :
         {"", " ", "N", "90", "ZZ    ZZ    ZZ    Z", "9E    9E    9E    N", "-1    -1    -1    N",
          "999    999    999    999    999    999", "1E5    1E    1E    W"}) {
        for (std::size_t index = 0; index < 10; ++index) {
            for (const std::int16_t projNum : {ProjEquirectangular, ProjAzimuthalEquidistant}) {
                StartDesign(projNum);
                Design.GridText[index] = text;
                CalcGraticule();
                ParamSelect();
                for (const double value :
                     {Design.LatNorth, Design.LonSpan, Design.LonCentral, Design.LatCentral, Design.MapXMax,
                      Design.MapYMax, Design.CosRange}) {
                    ASSERT_TRUE(std::isfinite(value)) << text << " in field " << index;
                }
            }
        }
    }
}

} // namespace
} // namespace quelmont
