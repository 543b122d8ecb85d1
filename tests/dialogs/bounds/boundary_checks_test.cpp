#include "dialogs/bounds/boundary_checks.h"

#include "core/map_design.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* LatGrZero = "The DEGREES OF LATITUDE BETWEEN GRID MARKS must be greater than zero.";
constexpr const char* LonGrZero = "The DEGREES OF LONGITUDE BETWEEN GRID MARKS must be greater than zero.";
constexpr const char* NorthPoleOnMercator =
    "You have included the North Pole (90°N) in your grid.  The poles cannot be plotted on a Mercator "
    "projection because they project to infinity.";
constexpr const char* SouthPoleOnMercator =
    "You have included the South Pole (90°S) in your grid.  The poles cannot be plotted on a Mercator "
    "projection because they project to infinity.";

/// One field left with one text. An empty title stands for no box.
struct Leave {
    std::int16_t projNum;
    const char* dialog;
    const char* control;
    const char* text;
    const char* title;
    const char* message;
};

void PrintTo(const Leave& leave, std::ostream* stream) {
    *stream << leave.dialog << '.' << leave.control << " \"" << leave.text << "\" on " << leave.projNum;
}

class BoundaryFieldLeft : public FreshProgramTest, public testing::WithParamInterface<Leave> {};

TEST_P(BoundaryFieldLeft, ShowsItsFirstFault) {
    const Leave& leave = GetParam();
    Design.ProjNum = leave.projNum;
    Design.ProjName = "Conformal Conic";
    Design.LatNorth = 80.0;
    Design.LatSouth = -80.0;
    machine.boxes.Answer(BoxAnswer::Retry);
    const Refusal refusal = CheckBoundaryField(leave.dialog, leave.control, leave.text);
    if (*leave.title == '\0') {
        EXPECT_FALSE(IsRefused(refusal));
        EXPECT_THAT(machine.boxes.asked, IsEmpty());
        machine.boxes.Ask("", "", BoxButtons::RetryCancel, BoxIcon::Exclamation); // takes the answer
        return;
    }
    EXPECT_EQ(refusal.Field, leave.control);
    EXPECT_THAT(refusal.Restored, ElementsAre(leave.control));
    EXPECT_TRUE(refusal.Retry);
    EXPECT_THAT(machine.boxes.asked, ElementsAre(AskedBox{leave.title, leave.message, BoxButtons::RetryCancel,
                                                          BoxIcon::Exclamation, BoxAnswer::Retry}));
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(Limits, BoundaryFieldLeft, testing::Values(
    Leave{2,  "LatLonBounds",   "LatN",           "90    00    01    N",  "Error: Northernmost latitude",          "Latitude cannot be > 90  00  00"},
    Leave{2,  "LatLonBounds",   "LatN",           "90    00    00    N",  "", ""},
    Leave{2,  "LatLonBounds",   "LatS",           "91    00    00    S",  "Error: Southernmost latitude",          "Degrees must be <= 90"},
    Leave{2,  "LatLonBounds",   "LatGr",          "181    00    00",      "Error: Degrees of latitude",            "Degrees must be <= 180"},
    Leave{2,  "LatLonBounds",   "LatGr",          "180    01    00",      "Error: Degrees of latitude",            "Latitude cannot be > 180  00  00"},
    Leave{2,  "LatLonBounds",   "LatGr",          "000    00    00",      "Error: Degrees of latitude",            LatGrZero},
    Leave{2,  "LatLonBounds",   "LonW",           "180    00    01    W", "Error: Westernmost longitude",          "Longitude cannot be > 180  00  00"},
    Leave{2,  "LatLonBounds",   "LonE",           "181    00    00    E", "Error: Easternmost longitude",          "Degrees must be <= 180"},
    Leave{2,  "LatLonBounds",   "LonGr",          "361    00    00",      "Error: Degrees of longitude",           "Degrees must be <= 360"},
    Leave{2,  "LatLonBounds",   "LonGr",          "360    00    01",      "Error: Degrees of longitude",           "Longitude cannot be > 360  00  00"},
    Leave{2,  "LatLonBounds",   "LonGr",          "000    00    00",      "Error: Degrees of longitude",           LonGrZero},
    Leave{26, "LatLonBoundsAz", "LatCentral",     "90    01    00    S",  "Error: Central latitude",               "Latitude cannot be > 90  00  00"},
    Leave{26, "LatLonBoundsAz", "LonCentral",     "180    01    00    W", "Error: Central longitude",              "Longitude cannot be > 180  00  00"},
    Leave{26, "LatLonBoundsAz", "LatGr",          "000    00    00",      "Error: Degrees of latitude",            LatGrZero},
    Leave{26, "LatLonBoundsAz", "LonGr",          "000    00    00",      "Error: Degrees of longitude",           LonGrZero},
    Leave{29, "LatLonBoundsVp", "LatCentral",     "91    00    00    N",  "Error: Central latitude",               "Degrees must be <= 90"},
    Leave{29, "LatLonBoundsVp", "LonCentral",     "181    00    00    E", "Error: Central longitude",              "Degrees must be <= 180"},
    Leave{29, "LatLonBoundsVp", "LatGr",          "180    00    01",      "Error: Degrees of latitude",            "Latitude cannot be > 180  00  00"},
    Leave{29, "LatLonBoundsVp", "LonGr",          "360    01    00",      "Error: Degrees of longitude",           "Longitude cannot be > 360  00  00"},
    Leave{17, "UtmParameters",  "UtmLonCentral",  "180    00    01    W", "Error: Central longitude",              "Longitude cannot be > 180  00  00"},
    Leave{17, "UtmParameters",  "UtmLatOrigin",   "90    00    01    N",  "Error: Latitude of map origin",         "Latitude cannot be > 90  00  00"}));

INSTANTIATE_TEST_SUITE_P(Hemispheres, BoundaryFieldLeft, testing::Values(
    Leave{2,  "LatLonBounds",   "LatN",           "91    60    60    W",  "Error: Northernmost latitude",          "Hemisphere must be N or S"},
    Leave{2,  "LatLonBounds",   "LonW",           "181    60    60    N", "Error: Westernmost longitude",          "Hemisphere must be W or E"},
    Leave{17, "UtmParameters",  "UtmLatOrigin",   "00    00    00    n",  "Error: Latitude of map origin",         "Hemisphere must be N or S"},
    Leave{17, "UtmParameters",  "UtmLonCentral",  "009    00    00",      "Error: Central longitude",              "Hemisphere must be W or E"},
    Leave{6,  "LatLonStdPar",   "LatNorthStdPar", "20    00    00    E",  "Error: Northernmost standard parallel", "Hemisphere must be N or S"},
    Leave{6,  "LatLonStdPar",   "LatNorthStdPar", "20    00    00    S",  "", ""},
    Leave{2,  "LatLonStdPar",   "LatNorthStdPar", "20    00    00    S",  "Error: Northernmost standard parallel", "Hemisphere must be N"},
    Leave{40, "LatLonStdPar",   "LatNorthStdPar", "20    00    00    S",  "Error: Northernmost standard parallel", "Hemisphere must be N"},
    Leave{2,  "LatLonStdPar",   "LatSouthStdPar", "20    00    00    S",  "", ""}));

INSTANTIATE_TEST_SUITE_P(MercatorPoles, BoundaryFieldLeft, testing::Values(
    Leave{1,  "LatLonBounds",   "LatN",           "90    00    00    N",  "Error: Mercator Projection",            NorthPoleOnMercator},
    Leave{1,  "LatLonBounds",   "LatS",           "90    00    00    S",  "Error: Mercator Projection",            SouthPoleOnMercator},
    Leave{1,  "LatLonBounds",   "LatN",           "89    59    59    N",  "", ""},
    Leave{1,  "LatLonBounds",   "LatGr",          "090    00    00",      "", ""},
    // The rule of the field comes first.
    Leave{1,  "LatLonBounds",   "LatN",           "90    00    01    N",  "Error: Northernmost latitude",          "Latitude cannot be > 90  00  00"}));

INSTANTIATE_TEST_SUITE_P(Ranges, BoundaryFieldLeft, testing::Values(
    Leave{30, "LatLonBoundsAz", "AzRangeDist",    "180    00    00",      "", ""},
    Leave{30, "LatLonBoundsAz", "AzRangeDist",    "090    00    60",      "Error: Range of map in degrees",        "Seconds must be <= 59."},
    Leave{30, "LatLonBoundsAz", "AzRangeDist",    "090    60    00",      "Error: Range of map in degrees",        "Minutes must be <= 59."},
    Leave{30, "LatLonBoundsAz", "AzRangeDist",    "181    00    00",      "Error: Range of map in degrees",        "Degrees must be <= 180°."},
    Leave{30, "LatLonBoundsAz", "AzRangeDist",    "000    00    00",      "Error: Range of map in degrees",        "RANGE OF MAP IN DEGREES must be > 0°."},
    Leave{30, "LatLonBoundsAz", "AzRangeDist",    "000    00    01",      "", ""},
    Leave{30, "LatLonBoundsAz", "AzRangeDist",    "180    00    01",      "Error: Range of map in degrees",        "RANGE OF MAP IN DEGREES must be <= 180°."},
    Leave{30, "LatLonBoundsAz", "AzRangeDist",    "180    01    00",      "Error: Range of map in degrees",        "RANGE OF MAP IN DEGREES must be <= 180°."},
    Leave{26, "LatLonBoundsAz", "AzRangeDist",    "089    59    59",      "", ""},
    Leave{26, "LatLonBoundsAz", "AzRangeDist",    "090    00    00",      "Error: Range of map in degrees",        "RANGE OF MAP IN DEGREES must be < 90°."},
    Leave{27, "LatLonBoundsAz", "AzRangeDist",    "090    00    00",      "", ""},
    Leave{27, "LatLonBoundsAz", "AzRangeDist",    "090    00    01",      "Error: Range of map in degrees",        "RANGE OF MAP IN DEGREES must be <= 90°."},
    Leave{28, "LatLonBoundsAz", "AzRangeDist",    "090    00    00",      "", ""},
    Leave{28, "LatLonBoundsAz", "AzRangeDist",    "120    00    00",      "Error: Range of map in degrees",        "RANGE OF MAP IN DEGREES must be <= 90°."},
    Leave{31, "LatLonBoundsAz", "AzRangeDist",    "120    00    00",      "", ""},
    // Two faults: seconds before minutes before degrees; what 26 and 28 can show before 180 degrees.
    Leave{26, "LatLonBoundsAz", "AzRangeDist",    "181    60    60",      "Error: Range of map in degrees",        "Seconds must be <= 59."},
    Leave{26, "LatLonBoundsAz", "AzRangeDist",    "181    60    00",      "Error: Range of map in degrees",        "Minutes must be <= 59."},
    Leave{26, "LatLonBoundsAz", "AzRangeDist",    "181    00    00",      "Error: Range of map in degrees",        "Degrees must be <= 180°."},
    Leave{26, "LatLonBoundsAz", "AzRangeDist",    "180    00    01",      "Error: Range of map in degrees",        "RANGE OF MAP IN DEGREES must be < 90°."},
    Leave{28, "LatLonBoundsAz", "AzRangeDist",    "180    00    01",      "Error: Range of map in degrees",        "RANGE OF MAP IN DEGREES must be <= 90°."}));

INSTANTIATE_TEST_SUITE_P(Distances, BoundaryFieldLeft, testing::Values(
    Leave{29, "LatLonBoundsVp", "VpDistanceKM",   "00035840",             "", ""},
    Leave{29, "LatLonBoundsVp", "VpDistanceKM",   "00000001",             "", ""},
    Leave{29, "LatLonBoundsVp", "VpDistanceKM",   "00,035,840",           "", ""},
    Leave{29, "LatLonBoundsVp", "VpDistanceKM",   "00000000",             "Error: Distance above surface",         "DISTANCE ABOVE SURFACE IN KILOMETERS must be >= 1."},
    Leave{29, "LatLonBoundsVp", "VpDistanceKM",   "",                     "Error: Distance above surface",         "DISTANCE ABOVE SURFACE IN KILOMETERS must be >= 1."}));

constexpr const char* NorthOfMap =
    "The latitude of the NORTHERNMOST STANDARD PARALLEL must be less than that of the NORTHERNMOST LATITUDE of the grid.";
constexpr const char* SouthOfMap =
    "The latitude of the SOUTHERNMOST STANDARD PARALLEL must be greater than that of the SOUTHERNMOST LATITUDE of the grid.";
constexpr const char* NorthIsPole =
    "The latitude of the NORTHERNMOST STANDARD PARALLEL cannot be 90° for the Conformal Conic projection.";
constexpr const char* SouthIsPole =
    "The latitude of the SOUTHERNMOST STANDARD PARALLEL cannot be 90° for the Conformal Conic projection.";

// The map reaches from 80 S to 80 N.
INSTANTIATE_TEST_SUITE_P(StandardParallels, BoundaryFieldLeft, testing::Values(
    Leave{7,  "LatLonStdPar",   "LatNorthStdPar", "79    59    59    N",  "", ""},
    Leave{7,  "LatLonStdPar",   "LatNorthStdPar", "80    00    00    N",  "Error: Northernmost standard parallel", NorthOfMap},
    Leave{8,  "LatLonStdPar",   "LatNorthStdPar", "90    00    00    N",  "Error: Northernmost standard parallel", NorthOfMap},
    Leave{7,  "LatLonStdPar",   "LatNorthStdPar", "90    00    00    N",  "Error: Northernmost standard parallel", NorthOfMap},
    Leave{7,  "LatLonStdPar",   "LatNorthStdPar", "90    00    00    S",  "Error: Northernmost standard parallel", NorthIsPole},
    Leave{8,  "LatLonStdPar",   "LatNorthStdPar", "90    00    00    S",  "", ""},
    Leave{7,  "LatLonStdPar",   "LatSouthStdPar", "79    59    59    S",  "", ""},
    Leave{7,  "LatLonStdPar",   "LatSouthStdPar", "80    00    00    S",  "Error: Southernmost standard parallel", SouthOfMap},
    Leave{7,  "LatLonStdPar",   "LatSouthStdPar", "90    00    00    N",  "Error: Southernmost standard parallel", SouthIsPole},
    Leave{7,  "LatLonStdPar",   "LatSouthStdPar", "90    00    01    N",  "Error: Southernmost standard parallel", "Latitude cannot be > 90  00  00"},
    Leave{2,  "LatLonStdPar",   "LatNorthStdPar", "85    00    00    N",  "", ""},
    Leave{2,  "LatLonStdPar",   "LatNorthStdPar", "90    00    00    N",  "Error: Northernmost standard parallel", NorthIsPole},
    Leave{40, "LatLonStdPar",   "LatNorthStdPar", "90    00    00    N",  "Error: Northernmost standard parallel", NorthIsPole},
    Leave{40, "LatLonStdPar",   "LatSouthStdPar", "90    00    00    S",  "Error: Southernmost standard parallel", SouthIsPole}));
// clang-format on

class BoundaryChecks : public FreshProgramTest {};

TEST_F(BoundaryChecks, CancelIsReportedApartFromRetry) {
    EXPECT_FALSE(CheckBoundaryField("LatLonBounds", "LatN", "91    00    00    N").Retry);
    machine.boxes.Answer(BoxAnswer::Retry);
    EXPECT_TRUE(CheckBoundaryField("LatLonBounds", "LatN", "91    00    00    N").Retry);
}

TEST_F(BoundaryChecks, FieldThatHasNoneIsAMistake) {
    EXPECT_THROW(CheckBoundaryField("LatLonBounds", "LatCentral", ""), std::out_of_range);
    EXPECT_THROW(CheckBoundaryField("Nowhere", "LatN", ""), std::out_of_range);
}

TEST_F(BoundaryChecks, EveryFieldOfTheTableTakesADesignThatIsGood) {
    Design.LatNorth = 90.0;
    Design.LatSouth = -90.0;
    Design.ProjNum = ProjAlbers;
    for (const BoundaryField& field : BoundaryFields()) {
        const bool arc = field.rule.kind == AngleFieldKind::Arc;
        const bool longitude = field.rule.kind == AngleFieldKind::Longitude;
        const char* const text = arc         ? "030    00    00"
                                 : longitude ? "122    26    00    W"
                                             : "37    47    00    N";
        EXPECT_FALSE(IsRefused(CheckBoundaryField(field.dialog, field.control, text)))
            << field.dialog << '.' << field.control;
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

AskedBox OkBox(const char* title, const char* text) {
    return {title, text, BoxButtons::Ok, BoxIcon::Exclamation, BoxAnswer::Ok};
}

constexpr const char* North90 = "90    00    00    N";
constexpr const char* South90 = "90    00    00    S";

class AcceptBounds : public FreshProgramTest {
protected:
    void ExpectRefused(const Refusal& refusal, const char* control, const char* title, const char* text) {
        EXPECT_EQ(refusal.Field, control);
        EXPECT_TRUE(refusal.Retry) << "the focus goes to the field";
        EXPECT_THAT(refusal.Restored, IsEmpty());
        EXPECT_THAT(machine.boxes.Taken(), ElementsAre(OkBox(title, text)));
    }
};

TEST_F(AcceptBounds, MercatorRefusesTheNorthPoleThenTheSouthPole) {
    Design.ProjNum = ProjMercator;
    ExpectRefused(AcceptLatLonBounds(North90, South90), "LatN", "Error: Mercator Projection",
                  NorthPoleOnMercator);
    ExpectRefused(AcceptLatLonBounds("80    00    00    N", South90), "LatS", "Error: Mercator Projection",
                  SouthPoleOnMercator);
    EXPECT_FALSE(IsRefused(AcceptLatLonBounds("80    00    00    N", "80    00    00    S")));
}

TEST_F(AcceptBounds, ConformalConicRefusesBothPolesNotOne) {
    Design.ProjNum = ProjConformalConic;
    ExpectRefused(AcceptLatLonBounds(North90, South90), "LatN", "Error: Conformal Conic Projection",
                  "The Lambert Conformal Conic map projection cannot display both poles.");
    EXPECT_FALSE(IsRefused(AcceptLatLonBounds(North90, "60    00    00    S")));
    EXPECT_FALSE(IsRefused(AcceptLatLonBounds("60    00    00    N", South90)));
}

TEST_F(AcceptBounds, OtherProjectionsTakeBothPoles) {
    for (const std::int16_t projNum : {ProjEquirectangular, ProjAlbers, ProjHammer, ProjRobinson}) {
        Design.ProjNum = projNum;
        EXPECT_FALSE(IsRefused(AcceptLatLonBounds(North90, South90)));
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(AcceptBounds, RangeIsTestedAgain) {
    Design.ProjNum = ProjGnomonic;
    ExpectRefused(AcceptLatLonBoundsAz("090    00    00"), "AzRangeDist", "Error: Range of map",
                  "RANGE OF MAP IN DEGREES must be < 90°.");
    EXPECT_FALSE(IsRefused(AcceptLatLonBoundsAz("089    59    59")));
    for (const std::int16_t projNum : {ProjStereographic, ProjOrthographic}) {
        Design.ProjNum = projNum;
        ExpectRefused(AcceptLatLonBoundsAz("090    00    01"), "AzRangeDist", "Error: Range of map",
                      "RANGE OF MAP IN DEGREES must be <= 90°.");
        EXPECT_FALSE(IsRefused(AcceptLatLonBoundsAz("090    00    00")));
    }
    Design.ProjNum = ProjAzimuthalEquidistant;
    EXPECT_FALSE(IsRefused(AcceptLatLonBoundsAz("180    00    00")));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

class AcceptStandardParallels : public AcceptBounds {
protected:
    AcceptStandardParallels() {
        Design.ProjNum = ProjConformalConic;
        Design.ProjName = "Conformal Conic";
        Design.LatNorth = 80.0;
        Design.LatSouth = -60.0;
    }
};

TEST_F(AcceptStandardParallels, TakesAGoodPair) {
    EXPECT_FALSE(IsRefused(AcceptLatLonStdPar("60    00    00    N", "20    00    00    N")));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(AcceptStandardParallels, RepeatsTheChecksOfTheFieldsNorthFirst) {
    ExpectRefused(AcceptLatLonStdPar("80    00    00    N", "60    00    00    S"), "LatNorthStdPar",
                  "Error: Northernmost standard parallel", NorthOfMap);
    ExpectRefused(AcceptLatLonStdPar("20    00    00    N", "60    00    00    S"), "LatSouthStdPar",
                  "Error: Southernmost standard parallel", SouthOfMap);
    ExpectRefused(AcceptLatLonStdPar(South90, "61    00    00    S"), "LatNorthStdPar",
                  "Error: Northernmost standard parallel", NorthIsPole);
    ExpectRefused(AcceptLatLonStdPar("20    00    00    N", North90), "LatSouthStdPar",
                  "Error: Southernmost standard parallel", SouthIsPole);
}

TEST_F(AcceptStandardParallels, NorthMustLieAboveSouth) {
    constexpr const char* text =
        "The latitude of the NORTHERNMOST STANDARD PARALLEL must be greater than that "
        "of the SOUTHERNMOST STANDARD PARALLEL.";
    ExpectRefused(AcceptLatLonStdPar("20    00    00    N", "30    00    00    N"), "LatNorthStdPar",
                  "Error: Standard parallels", text);
    Design.ProjNum = ProjAlbers;
    ExpectRefused(AcceptLatLonStdPar("20    00    00    N", "20    00    00    N"), "LatNorthStdPar",
                  "Error: Standard parallels", text);
}

TEST_F(AcceptStandardParallels, PairOfAConeIsNotSymmetric) {
    constexpr const char* text =
        "The latitudes of the NORTHERN- and SOUTHERNMOST STANDARD PARALLELS  cannot be "
        "equal, and they cannot be symmetric about the equator.";
    ExpectRefused(AcceptLatLonStdPar("30    00    00    N", "30    00    00    S"), "LatNorthStdPar",
                  "Error: Conformal Conic standard parallels", text);
    for (const std::int16_t projNum : {ProjEquidistantConic, ProjAlbers}) {
        Design.ProjNum = projNum;
        ExpectRefused(AcceptLatLonStdPar("30    00    00    N", "30    00    00    S"), "LatNorthStdPar",
                      "Error: Standard parallels", text);
        EXPECT_FALSE(IsRefused(AcceptLatLonStdPar("30    00    00    N", "29    59    59    S")));
    }
}

TEST_F(AcceptStandardParallels, ConformalMapOfAPoleNeedsItsParallelFurtherOut) {
    Design.LatNorth = 90.0;
    ExpectRefused(
        AcceptLatLonStdPar("20    00    00    N", "30    00    00    S"), "LatNorthStdPar",
        "Error: Conformal Conic standard parallels",
        "For maps which show the North Pole (90°N), the NORTHERNMOST STANDARD PARALLEL must be further "
        "from the equator than the SOUTHERNMOST STANDARD PARALLEL.");
    EXPECT_FALSE(IsRefused(AcceptLatLonStdPar("30    00    00    N", "20    00    00    S")));
    Design.LatNorth = 60.0;
    Design.LatSouth = -90.0;
    ExpectRefused(
        AcceptLatLonStdPar("30    00    00    N", "20    00    00    S"), "LatSouthStdPar",
        "Error: Conformal Conic standard parallels",
        "For maps which show the South Pole (90°S), the SOUTHERNMOST STANDARD PARALLEL must be further "
        "from the equator than the NORTHERNMOST STANDARD PARALLEL.");
    EXPECT_FALSE(IsRefused(AcceptLatLonStdPar("20    00    00    N", "30    00    00    S")));
    Design.ProjNum = ProjAlbers;
    EXPECT_FALSE(IsRefused(AcceptLatLonStdPar("30    00    00    N", "20    00    00    S")));
}

TEST_F(AcceptStandardParallels, OneParallelAndItsMirrorImageMayLieOutsideTheMap) {
    for (const std::int16_t projNum : {ProjEquirectangular, ProjCylindricalEqualArea}) {
        Design.ProjNum = projNum;
        EXPECT_FALSE(IsRefused(AcceptLatLonStdPar("85    00    00    N", "85    00    00    S")));
        EXPECT_FALSE(IsRefused(AcceptLatLonStdPar("00    00    00    N", "00    00    00    S")));
        ExpectRefused(AcceptLatLonStdPar(North90, South90), "LatNorthStdPar",
                      "Error: Northernmost standard parallel", NorthIsPole);
    }
}

} // namespace
} // namespace quelmont
