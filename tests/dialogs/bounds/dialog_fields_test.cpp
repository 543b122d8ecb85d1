// Every check of every field of the boundary dialogs, made in the dialogs themselves: what the box
// says, what Retry and Cancel do, and which of two faults is reported.

#include "core/constant_defs.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "dialogs/bounds/lat_lon_bounds.h"
#include "dialogs/bounds/lat_lon_bounds_az.h"
#include "dialogs/bounds/lat_lon_interrupt.h"
#include "dialogs/bounds/lat_lon_std_par.h"
#include "dialogs/bounds/utm_dialogs.h"
#include "graticule/calc_graticule.h"
#include "projection/projection_table.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using Maker = std::unique_ptr<Form> (*)();

template <typename Dialog>
std::unique_ptr<Form> Make() {
    return std::make_unique<Dialog>();
}

constexpr const char* NorthSouth = "Hemisphere must be N or S";
constexpr const char* WestEast = "Hemisphere must be W or E";

/// An angle field. beside is the control that the focus goes to when the field is left.
struct AngleFieldCase {
    const char* name;
    std::int16_t projNum;
    Maker make;
    const char* control;
    const char* beside;
    const char* title;
    int limit; ///< degrees
    const char* atLimit;
    const char* hemisphere; ///< empty for an arc
    const char* zero;       ///< empty where zero is allowed
};

void PrintTo(const AngleFieldCase& field, std::ostream* stream) { *stream << field.name; }

constexpr const char* Latitude90 = "Latitude cannot be > 90  00  00";
constexpr const char* Latitude180 = "Latitude cannot be > 180  00  00";
constexpr const char* Longitude180 = "Longitude cannot be > 180  00  00";
constexpr const char* Longitude360 = "Longitude cannot be > 360  00  00";
constexpr const char* LatGrZero = "The DEGREES OF LATITUDE BETWEEN GRID MARKS must be greater than zero.";
constexpr const char* LonGrZero = "The DEGREES OF LONGITUDE BETWEEN GRID MARKS must be greater than zero.";

void ChooseProjection(std::int16_t projNum) {
    Design.ProjNum = projNum;
    Design.ProjName = FindProjection(projNum)->ProjName;
    ProposeBounds();
    CalcGraticule();
}

class DialogField : public FreshProgramTest, public testing::WithParamInterface<AngleFieldCase> {
protected:
    DialogField() : field(GetParam()) {
        ConstantDefs();
        ChooseProjection(field.projNum);
        form = field.make();
        form->MoveFocus(field.beside);
        form->MoveFocus(field.control);
        good = form->At(field.control).text;
        EXPECT_EQ(form->Focus(), field.control);
        machine.boxes.Taken();
    }

    /// The text of the field's kind with these figures and a letter.
    std::string Text(int degrees, int minutes, int seconds, char letter) const {
        const bool latitude = field.hemisphere == std::string(NorthSouth) ||
                              field.hemisphere == std::string("Hemisphere must be N");
        std::string text = std::to_string(degrees);
        text.insert(0, (latitude ? 2 : 3) - text.size(), '0');
        for (const int part : {minutes, seconds}) {
            text += "    " + std::string(part < 10 ? "0" : "") + std::to_string(part);
        }
        return *field.hemisphere == '\0' ? text : text + "    " + letter;
    }
    char GoodLetter() const { return field.hemisphere == std::string(WestEast) ? 'E' : 'N'; }

    void ExpectFault(const std::string& text, const std::string& message) {
        const auto box = [&](BoxAnswer answer) {
            return AskedBox{field.title, message, BoxButtons::RetryCancel, BoxIcon::Exclamation, answer};
        };
        machine.boxes.Answer(BoxAnswer::Retry);
        form->Type(field.control, text);
        form->MoveFocus(field.beside);
        EXPECT_EQ(form->Focus(), field.control) << text;
        EXPECT_EQ(form->At(field.control).text, text) << "left to be corrected";
        EXPECT_THAT(machine.boxes.Taken(), ElementsAre(box(BoxAnswer::Retry)));
        machine.boxes.Answer(BoxAnswer::Cancel);
        form->MoveFocus(field.beside);
        EXPECT_EQ(form->Focus(), field.beside) << text;
        EXPECT_EQ(form->At(field.control).text, good) << "the design's text is back";
        EXPECT_THAT(machine.boxes.Taken(), ElementsAre(box(BoxAnswer::Cancel)));
        form->MoveFocus(field.control);
    }

    const AngleFieldCase& field;
    std::unique_ptr<Form> form;
    std::string good;
};

TEST_P(DialogField, TellsTheHemisphereBeforeTheSeconds) {
    if (*field.hemisphere != '\0') {
        ExpectFault(Text(10, 0, 60, 'X'), field.hemisphere);
        ExpectFault(Text(10, 0, 0, GoodLetter() == 'N' ? 'E' : 'N'), field.hemisphere);
    }
}

TEST_P(DialogField, TellsTheSecondsBeforeTheMinutes) {
    ExpectFault(Text(10, 60, 60, GoodLetter()), "Seconds must be <= 59");
}

TEST_P(DialogField, TellsTheMinutesBeforeTheDegrees) {
    ExpectFault(Text(field.limit + 1, 60, 59, GoodLetter()), "Minutes must be <= 59");
}

TEST_P(DialogField, TellsTheDegreesBeforeTheLimit) {
    ExpectFault(Text(field.limit + 1, 59, 0, GoodLetter()),
                "Degrees must be <= " + std::to_string(field.limit));
}

TEST_P(DialogField, TakesNoMinutesBeyondTheLimit) {
    ExpectFault(Text(field.limit, 1, 0, GoodLetter()), field.atLimit);
    ExpectFault(Text(field.limit, 0, 1, GoodLetter()), field.atLimit);
}

TEST_P(DialogField, ZeroIsForPlacesNotForSpacings) {
    if (*field.zero != '\0') {
        ExpectFault(Text(0, 0, 0, ' '), field.zero);
        return;
    }
    form->Type(field.control, Text(0, 0, 0, GoodLetter()));
    form->MoveFocus(field.beside);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_P(DialogField, GoodTextIsLeftWithoutAWord) {
    form->Type(field.control, Text(20, 30, 59, GoodLetter()));
    form->MoveFocus(field.beside);
    EXPECT_EQ(form->Focus(), field.beside);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_P(DialogField, CancelLooksAtNoField) {
    form->Type(field.control, Text(field.limit, 60, 60, 'X'));
    form->PressCancel();
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_TRUE(form->Closed());
    EXPECT_TRUE(Design.DialogCancelled);
}

TEST_P(DialogField, OkFirstLooksAtTheFieldLeftLast) {
    machine.boxes.Answer(BoxAnswer::Retry);
    form->Type(field.control, Text(10, 0, 60, GoodLetter()));
    form->PressDefault();
    EXPECT_EQ(form->Focus(), field.control);
    EXPECT_FALSE(form->Closed());
    EXPECT_EQ(machine.boxes.Taken().size(), 1U);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, DialogField, testing::Values(
    AngleFieldCase{"BoundsLatN",  ProjRobinson, Make<LatLonBounds>, "LatN",  "LonW", "Error: Northernmost latitude",   90, Latitude90,   NorthSouth, ""},
    AngleFieldCase{"BoundsLatS",  ProjRobinson, Make<LatLonBounds>, "LatS",  "LonW", "Error: Southernmost latitude",   90, Latitude90,   NorthSouth, ""},
    AngleFieldCase{"BoundsLatGr", ProjRobinson, Make<LatLonBounds>, "LatGr", "LonW", "Error: Degrees of latitude",    180, Latitude180,  "",         LatGrZero},
    AngleFieldCase{"BoundsLonW",  ProjRobinson, Make<LatLonBounds>, "LonW",  "LatN", "Error: Westernmost longitude",  180, Longitude180, WestEast,   ""},
    AngleFieldCase{"BoundsLonE",  ProjRobinson, Make<LatLonBounds>, "LonE",  "LatN", "Error: Easternmost longitude",  180, Longitude180, WestEast,   ""},
    AngleFieldCase{"BoundsLonGr", ProjRobinson, Make<LatLonBounds>, "LonGr", "LatN", "Error: Degrees of longitude",   360, Longitude360, "",         LonGrZero},
    AngleFieldCase{"AzLatCentral", ProjAzimuthalEquidistant, Make<LatLonBoundsAz>, "LatCentral", "LonGr", "Error: Central latitude",     90, Latitude90,   NorthSouth, ""},
    AngleFieldCase{"AzLonCentral", ProjAzimuthalEquidistant, Make<LatLonBoundsAz>, "LonCentral", "LonGr", "Error: Central longitude",   180, Longitude180, WestEast,   ""},
    AngleFieldCase{"AzLatGr",      ProjAzimuthalEquidistant, Make<LatLonBoundsAz>, "LatGr",      "LonGr", "Error: Degrees of latitude", 180, Latitude180,  "",         LatGrZero},
    AngleFieldCase{"AzLonGr",      ProjAzimuthalEquidistant, Make<LatLonBoundsAz>, "LonGr",      "LatGr", "Error: Degrees of longitude", 360, Longitude360, "",        LonGrZero},
    AngleFieldCase{"VpLatCentral", ProjVerticalPerspective, Make<LatLonBoundsVp>, "LatCentral", "LonGr", "Error: Central latitude",     90, Latitude90,   NorthSouth, ""},
    AngleFieldCase{"VpLonCentral", ProjVerticalPerspective, Make<LatLonBoundsVp>, "LonCentral", "LonGr", "Error: Central longitude",   180, Longitude180, WestEast,   ""},
    AngleFieldCase{"VpLatGr",      ProjVerticalPerspective, Make<LatLonBoundsVp>, "LatGr",      "LonGr", "Error: Degrees of latitude", 180, Latitude180,  "",         LatGrZero},
    AngleFieldCase{"VpLonGr",      ProjVerticalPerspective, Make<LatLonBoundsVp>, "LonGr",      "LatGr", "Error: Degrees of longitude", 360, Longitude360, "",        LonGrZero},
    AngleFieldCase{"NorthParallel",    ProjAlbers, Make<LatLonStdPar>, "LatNorthStdPar", "LatSouthStdPar", "Error: Northernmost standard parallel", 90, Latitude90, NorthSouth, ""},
    AngleFieldCase{"SouthParallel",    ProjAlbers, Make<LatLonStdPar>, "LatSouthStdPar", "LatNorthStdPar", "Error: Southernmost standard parallel", 90, Latitude90, NorthSouth, ""},
    AngleFieldCase{"CylinderParallel", ProjEquirectangular, Make<LatLonStdPar>, "LatNorthStdPar", "OK", "Error: Northernmost standard parallel", 90, Latitude90, "Hemisphere must be N", ""},
    AngleFieldCase{"ZoneLongitude", ProjUtm, Make<UtmParameters>, "UtmLonCentral", "UtmEasting", "Error: Central longitude",       180, Longitude180, WestEast,   ""},
    AngleFieldCase{"ZoneLatitude",  ProjUtm, Make<UtmParameters>, "UtmLatOrigin",  "UtmEasting", "Error: Latitude of map origin",   90, Latitude90,   NorthSouth, ""},
    AngleFieldCase{"North1", ProjInterruptedMollweide, Make<LatLonInterrupt>, "LonInt(0)", "LonInt(1)", "Error: Interrupted longitude #1 in Northern hemisphere", 180, Longitude180, WestEast, ""},
    AngleFieldCase{"North2", ProjInterruptedMollweide, Make<LatLonInterrupt>, "LonInt(1)", "LonInt(0)", "Error: Interrupted longitude #2 in Northern hemisphere", 180, Longitude180, WestEast, ""},
    AngleFieldCase{"South1", ProjInterruptedMollweide, Make<LatLonInterrupt>, "LonInt(3)", "LonInt(0)", "Error: Interrupted longitude #1 in Southern hemisphere", 180, Longitude180, WestEast, ""},
    AngleFieldCase{"South2", ProjInterruptedMollweide, Make<LatLonInterrupt>, "LonInt(4)", "LonInt(0)", "Error: Interrupted longitude #2 in Southern hemisphere", 180, Longitude180, WestEast, ""}),
    [](const auto& test) { return test.param.name; });
// clang-format on

/// Leaves a field of an open dialog with a text, and answers its box with Retry.
class DialogFieldOnly : public FreshProgramTest {
protected:
    DialogFieldOnly() { ConstantDefs(); }

    void ExpectBox(Form& form, const char* control, const char* text, const char* title,
                   const char* message) {
        form.MoveFocus(control);
        machine.boxes.Answer(BoxAnswer::Retry);
        form.Type(control, text);
        form.MoveFocus("OK");
        EXPECT_EQ(form.Focus(), control) << text;
        EXPECT_THAT(machine.boxes.Taken(), ElementsAre(AskedBox{title, message, BoxButtons::RetryCancel,
                                                                BoxIcon::Exclamation, BoxAnswer::Retry}))
            << text;
    }
};

TEST_F(DialogFieldOnly, MercatorTakesNoPole) {
    ChooseProjection(ProjMercator);
    LatLonBounds form;
    ExpectBox(form, "LatN", "90    00    00    N", "Error: Mercator Projection",
              "You have included the North Pole (90°N) in your grid.  The poles cannot be plotted on a "
              "Mercator projection because they project to infinity.");
    machine.boxes.Answer(BoxAnswer::Cancel);
    form.MoveFocus("LatS");
    machine.boxes.Taken();
    ExpectBox(form, "LatS", "90    00    00    S", "Error: Mercator Projection",
              "You have included the South Pole (90°S) in your grid.  The poles cannot be plotted on a "
              "Mercator projection because they project to infinity.");
}

TEST_F(DialogFieldOnly, MercatorLatitudeBeyondThePoleIsReportedAsSuch) {
    ChooseProjection(ProjMercator);
    LatLonBounds form;
    ExpectBox(form, "LatN", "90    00    01    N", "Error: Northernmost latitude", Latitude90);
}

TEST_F(DialogFieldOnly, RangeIsCheckedFigureByFigureThenByProjection) {
    constexpr const char* title = "Error: Range of map in degrees";
    ChooseProjection(ProjGnomonic);
    LatLonBoundsAz gnomonic;
    ExpectBox(gnomonic, "AzRangeDist", "181    60    60", title, "Seconds must be <= 59.");
    ExpectBox(gnomonic, "AzRangeDist", "181    60    59", title, "Minutes must be <= 59.");
    ExpectBox(gnomonic, "AzRangeDist", "181    00    00", title, "Degrees must be <= 180°.");
    ExpectBox(gnomonic, "AzRangeDist", "000    00    00", title, "RANGE OF MAP IN DEGREES must be > 0°.");
    ExpectBox(gnomonic, "AzRangeDist", "090    00    00", title, "RANGE OF MAP IN DEGREES must be < 90°.");
    for (const std::int16_t projNum : {ProjStereographic, ProjOrthographic}) {
        ChooseProjection(projNum);
        LatLonBoundsAz form;
        ExpectBox(form, "AzRangeDist", "090    00    01", title, "RANGE OF MAP IN DEGREES must be <= 90°.");
        ExpectBox(form, "AzRangeDist", "180    00    01", title, "RANGE OF MAP IN DEGREES must be <= 90°.");
    }
    ChooseProjection(ProjAzimuthalEqualArea);
    LatLonBoundsAz whole;
    ExpectBox(whole, "AzRangeDist", "180    00    01", title, "RANGE OF MAP IN DEGREES must be <= 180°.");
}

TEST_F(DialogFieldOnly, RefusedRangeGetsTheDesignsBackOnCancel) {
    ChooseProjection(ProjGnomonic);
    LatLonBoundsAz form;
    form.MoveFocus("AzRangeDist");
    form.Type("AzRangeDist", "091    00    00");
    machine.boxes.Answer(BoxAnswer::Cancel);
    form.MoveFocus("LatGr");
    EXPECT_EQ(form.At("AzRangeDist").text, "060    00    00");
    EXPECT_EQ(form.Focus(), "LatGr");
}

TEST_F(DialogFieldOnly, ViewPointStandsAtLeastAKilometreHigh) {
    ChooseProjection(ProjVerticalPerspective);
    LatLonBoundsVp form;
    ExpectBox(form, "VpDistanceKM", "00,000,000", "Error: Distance above surface",
              "DISTANCE ABOVE SURFACE IN KILOMETERS must be >= 1.");
    machine.boxes.Answer(BoxAnswer::Cancel);
    form.MoveFocus("OK");
    EXPECT_EQ(form.At("VpDistanceKM").text, "00,035,840");
    form.Type("VpDistanceKM", "00,000,001");
    form.MoveFocus("LatGr");
    EXPECT_EQ(machine.boxes.Taken().size(), 1U) << "of the cancelled one alone";
}

TEST_F(DialogFieldOnly, ParallelMustLieInsideTheMapBeforeItMustNotBeAPole) {
    ChooseProjection(ProjConformalConic);
    LatLonStdPar form;
    ExpectBox(form, "LatNorthStdPar", "90    00    00    N", "Error: Northernmost standard parallel",
              "The latitude of the NORTHERNMOST STANDARD PARALLEL must be less than that of the "
              "NORTHERNMOST LATITUDE of the grid.");
    ExpectBox(form, "LatNorthStdPar", "90    00    00    S", "Error: Northernmost standard parallel",
              "The latitude of the NORTHERNMOST STANDARD PARALLEL cannot be 90° for the Conformal Conic "
              "projection.");
    form.Type("LatNorthStdPar", "50    00    00    N");
    ExpectBox(form, "LatSouthStdPar", "60    00    00    S", "Error: Southernmost standard parallel",
              "The latitude of the SOUTHERNMOST STANDARD PARALLEL must be greater than that of the "
              "SOUTHERNMOST LATITUDE of the grid.");
    ExpectBox(form, "LatSouthStdPar", "90    00    00    N", "Error: Southernmost standard parallel",
              "The latitude of the SOUTHERNMOST STANDARD PARALLEL cannot be 90° for the Conformal Conic "
              "projection.");
}

TEST_F(DialogFieldOnly, CylinderTakesNoPoleAsItsParallel) {
    for (const std::int16_t projNum : {ProjEquirectangular, ProjCylindricalEqualArea}) {
        ChooseProjection(projNum);
        LatLonStdPar form;
        const std::string message =
            "The latitude of the NORTHERNMOST STANDARD PARALLEL cannot be 90° for the " + Design.ProjName +
            " projection.";
        ExpectBox(form, "LatNorthStdPar", "90    00    00    N", "Error: Northernmost standard parallel",
                  message.c_str());
    }
}

} // namespace
} // namespace quelmont
