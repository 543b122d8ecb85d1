// What the boundary dialogs propose, what their OK refuses and stores, and how one leads to another.

#include "core/constant_defs.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "dialogs/bounds/boundary_dialog.h"
#include "dialogs/bounds/lat_lon_bounds.h"
#include "dialogs/bounds/lat_lon_bounds_az.h"
#include "dialogs/bounds/lat_lon_interrupt.h"
#include "dialogs/bounds/lat_lon_std_par.h"
#include "dialogs/bounds/lobe_checks.h"
#include "dialogs/bounds/utm_dialogs.h"
#include "graticule/calc_graticule.h"
#include "projection/projection_table.h"
#include "projection/utm.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::Field;
using testing::IsEmpty;

/// The program as it starts, with a projection chosen.
class BoundaryDialogs : public FreshProgramTest {
protected:
    BoundaryDialogs() { ConstantDefs(); }

    static void Choose(std::int16_t projNum) {
        Design.ProjNum = projNum;
        Design.ProjName = FindProjection(projNum)->ProjName;
    }
    static bool& IsSet() { return Design.ProjGridSet[static_cast<std::size_t>(Design.ProjNum)]; }
    static AskedBox OkBox(const char* title, const char* text) {
        return {title, text, BoxButtons::Ok, BoxIcon::Exclamation, BoxAnswer::Ok};
    }
    static AskedBox RetryBox(const char* title, const char* text, BoxAnswer answer) {
        return {title, text, BoxButtons::RetryCancel, BoxIcon::Exclamation, answer};
    }
    static std::vector<std::string> Texts(const Form& form) {
        std::vector<std::string> texts;
        for (const Control& control : form.Controls()) {
            if (control.kind == ControlKind::Edit) {
                texts.push_back(control.text);
            }
        }
        return texts;
    }
    static void TypeAll(Form& form, const std::map<std::string, std::string>& texts) {
        for (const auto& [control, text] : texts) {
            form.Type(control, text);
        }
    }
};

// ---- What they propose

TEST_F(BoundaryDialogs, BoundsProposeTheWholeWorld) {
    Choose(ProjRobinson);
    Design.BoundsChanged = true;
    const LatLonBounds form;
    EXPECT_EQ(form.Caption(), "Non-azimuthal Projection Boundaries");
    EXPECT_THAT(Texts(form), ElementsAre("90    00    00    N", "90    00    00    S", "030    00    00",
                                         "180    00    00    W", "180    00    00    E", "045    00    00"));
    EXPECT_FALSE(Design.BoundsChanged);
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_EQ(form.At("HelpLine").text,
              "Move within a line using cursor keys or mouse.  Move between lines with TAB key or mouse.");
}

TEST_F(BoundaryDialogs, BoundsProposeWhatTheProjectionCanShow) {
    Choose(ProjMercator);
    EXPECT_EQ(LatLonBounds().At("LatN").text, "80    00    00    N");
    EXPECT_EQ(LatLonBounds().At("LatS").text, "80    00    00    S");
    Choose(ProjConformalConic);
    EXPECT_EQ(LatLonBounds().At("LatN").text, "90    00    00    N");
    EXPECT_EQ(LatLonBounds().At("LatS").text, "60    00    00    S");
    Choose(ProjInterruptedMollweide);
    const LatLonBounds interrupted;
    EXPECT_EQ(interrupted.At("LatGr").text, "010    00    00");
    EXPECT_EQ(interrupted.At("LonW").text, "020    00    00    E");
    EXPECT_EQ(interrupted.At("LonE").text, "020    00    00    E");
}

TEST_F(BoundaryDialogs, RangesProposeWhatTheProjectionCanShow) {
    Choose(ProjGnomonic);
    EXPECT_EQ(LatLonBoundsAz().At("AzRangeDist").text, "060    00    00");
    for (const std::int16_t projNum : {ProjStereographic, ProjOrthographic}) {
        Choose(projNum);
        EXPECT_EQ(LatLonBoundsAz().At("AzRangeDist").text, "090    00    00");
    }
    Choose(ProjAzimuthalEquidistant);
    EXPECT_EQ(LatLonBoundsAz().At("AzRangeDist").text, "180    00    00");
}

TEST_F(BoundaryDialogs, AcceptedBoundsAreShownAgain) {
    Choose(ProjRobinson);
    ConstantGrid();
    IsSet() = true;
    Design.GridText[GridTextNorth] = "70    00    00    N";
    Design.GridText[GridTextLatSpacing] = "010    00    00";
    EXPECT_EQ(LatLonBounds().At("LatN").text, "70    00    00    N");
}

TEST_F(BoundaryDialogs, ProposalsForANewProjectionLastUntilTheyAreCancelled) {
    Choose(ProjMercator);
    Design.GridText[GridTextNorth] = "70    00    00    N";
    LatLonBounds form;
    EXPECT_EQ(Design.GridText[GridTextNorth], "80    00    00    N");
    form.PressCancel();
    EXPECT_EQ(Design.GridText[GridTextNorth], "70    00    00    N");
    EXPECT_FALSE(IsSet());
}

// ---- LatLonBounds

TEST_F(BoundaryDialogs, BoundsWithoutAFollowUpAreAcceptedAtOnce) {
    for (const std::int16_t projNum : {ProjMercator, ProjHammer, ProjRobinson, ProjMollweide}) {
        Choose(projNum);
        LatLonBounds form;
        TypeAll(form, {{"LatN", "60    00    00    N"},
                       {"LatS", "30    00    00    N"},
                       {"LatGr", "010    00    00"},
                       {"LonW", "010    00    00    W"},
                       {"LonE", "020    00    00    E"},
                       {"LonGr", "005    00    00"}});
        form.PressDefault();
        EXPECT_TRUE(form.Closed()) << projNum;
        EXPECT_TRUE(IsSet());
        EXPECT_TRUE(Design.BoundsChanged);
        EXPECT_FALSE(Design.DialogCancelled);
        EXPECT_EQ(Design.LatNorthSec, 60 * 3600);
        EXPECT_EQ(Design.LonSpanSec, 30 * 3600);
        EXPECT_EQ(Design.GridText[GridTextLonSpacing], "005    00    00");
        EXPECT_GT(Design.MapYMax, Design.MapYMin) << "the extent is that of the new bounds";
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
    EXPECT_THAT(machine.forms.shown, IsEmpty());
}

TEST_F(BoundaryDialogs, MercatorPolesThatSlippedInAreRefusedByOk) {
    Choose(ProjMercator);
    LatLonBounds form;
    form.MoveFocus("OK"); // past the fields
    form.Type("LatS", "90    00    00    S");
    form.Press("OK");
    EXPECT_EQ(form.Focus(), "LatS");
    EXPECT_FALSE(form.Closed());
    ASSERT_EQ(machine.boxes.asked.size(), 1U);
    EXPECT_EQ(machine.boxes.asked[0].title, "Error: Mercator Projection");
    EXPECT_EQ(machine.boxes.asked[0].buttons, BoxButtons::Ok);
    form.Type("LatN", "90    00    00    N");
    machine.boxes.Taken();
    form.MoveFocus("OK");
    EXPECT_EQ(machine.boxes.Taken().size(), 1U) << "the field that is left";
}

TEST_F(BoundaryDialogs, ConformalConicRefusesBothPoles) {
    Choose(ProjConformalConic);
    LatLonBounds form;
    form.Type("LatS", "90    00    00    S");
    form.PressDefault();
    EXPECT_EQ(form.Focus(), "LatN");
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(OkBox("Error: Conformal Conic Projection",
                                  "The Lambert Conformal Conic map projection cannot display both poles.")));
    EXPECT_EQ(Design.GridText[GridTextSouth], "60    00    00    S") << "nothing was stored";
}

/// What CalcGraticule refuses, through the dialog.
struct RefusedBounds {
    const char* name;
    std::map<std::string, std::string> texts;
    const char* title;
    const char* text;
    const char* field;
};
void PrintTo(const RefusedBounds& bounds, std::ostream* stream) { *stream << bounds.name; }

class RefusedByCalcGraticule : public BoundaryDialogs, public testing::WithParamInterface<RefusedBounds> {};

TEST_P(RefusedByCalcGraticule, RetryGivesTheFocusToItsField) {
    Choose(ProjRobinson);
    LatLonBounds form;
    TypeAll(form, GetParam().texts);
    machine.boxes.Answer(BoxAnswer::Retry);
    form.PressDefault();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(RetryBox(GetParam().title, GetParam().text, BoxAnswer::Retry)));
    EXPECT_EQ(form.Focus(), GetParam().field);
    EXPECT_FALSE(form.Closed());
    EXPECT_FALSE(Design.ProjOffMap) << "the mark is taken away";
    EXPECT_FALSE(IsSet());
    EXPECT_FALSE(Design.BoundsChanged);
}

TEST_P(RefusedByCalcGraticule, CancelLeavesTheDialogOpenWithWhatWasRefused) {
    Choose(ProjRobinson);
    LatLonBounds form;
    TypeAll(form, GetParam().texts);
    const std::vector<std::string> typed = Texts(form);
    form.PressDefault();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(RetryBox(GetParam().title, GetParam().text, BoxAnswer::Cancel)));
    EXPECT_FALSE(form.Closed());
    EXPECT_EQ(form.Focus(), "OK");
    EXPECT_THAT(Texts(form), ElementsAreArray(typed)) << "the refused design is the design's by then";
}

TEST_F(BoundaryDialogs, SpacingOfZeroShowsTheFailureAndGoesOn) {
    Choose(ProjRobinson);
    LatLonBounds form;
    form.MoveFocus("OK");
    form.Type("LatGr", "000    00    00");
    form.Press("OK");
    EXPECT_THAT(machine.boxes.asked, ElementsAre(OkBox("Error in CalcGraticule", "Error: Division by zero")));
    EXPECT_TRUE(form.Closed());
}

// ---- Standard parallels

TEST_F(BoundaryDialogs, BoundsGoOnToTheParallelsAndCloseWithThem) {
    for (const std::int16_t projNum : {ProjEquirectangular, ProjEquidistantConic, ProjConformalConic,
                                       ProjAlbers, ProjCylindricalEqualArea}) {
        Choose(projNum);
        machine.forms.shown.clear();
        machine.forms.Script("LatLonStdPar", [](Form& form) { form.PressDefault(); });
        LatLonBounds form;
        form.PressDefault();
        EXPECT_THAT(machine.forms.shown, ElementsAre("LatLonStdPar"));
        EXPECT_TRUE(form.Closed());
        EXPECT_TRUE(IsSet());
        EXPECT_FALSE(Design.DialogCancelled);
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(BoundaryDialogs, CancelledParallelsLeaveTheBoundsOpen) {
    Choose(ProjAlbers);
    machine.forms.Script("LatLonStdPar", [](Form& form) { form.PressCancel(); });
    LatLonBounds form;
    form.PressDefault();
    EXPECT_FALSE(form.Closed());
    EXPECT_FALSE(IsSet());
    EXPECT_FALSE(Design.BoundsChanged);
    EXPECT_TRUE(Design.DialogCancelled);
}

TEST_F(BoundaryDialogs, BoundsCloseAsOkGetsTheFocusOnceTheyChanged) {
    Choose(ProjRobinson);
    LatLonBounds form;
    Design.BoundsChanged = true;
    form.MoveFocus("OK");
    EXPECT_TRUE(form.Closed());
}

TEST_F(BoundaryDialogs, ParallelsOfANewConeAreProposed) {
    Choose(ProjAlbers);
    ProposeBounds();
    CalcGraticule();
    Design.StdParText = {"01    00    00    N", "01    00    00    S"};
    Design.StdParNorth = 1.0;
    Design.StdParSouth = -1.0;
    const LatLonStdPar form;
    EXPECT_EQ(form.Caption(), "Latitudes of Standard Parallels");
    EXPECT_THAT(Texts(form), ElementsAre("60    00    00    N", "00    00    00    N"));
    EXPECT_EQ(form.At("LatNorth").text, "90    00    00    N");
    EXPECT_EQ(form.At("LatSouth").text, "90    00    00    S");
}

TEST_F(BoundaryDialogs, StoredParallelsInsideTheMapAreKept) {
    Choose(ProjAlbers);
    ProposeBounds();
    CalcGraticule();
    IsSet() = true;
    StoreStandardParallels("45    00    00    N", "10    00    00    N");
    EXPECT_THAT(Texts(LatLonStdPar()), ElementsAre("45    00    00    N", "10    00    00    N"));
}

TEST_F(BoundaryDialogs, ParallelsOfAConeThatLieOnTheEdgeAreProposedAnew) {
    Choose(ProjAlbers);
    ProposeBounds();
    IsSet() = true;
    Design.GridText[GridTextNorth] = "45    00    00    N";
    Design.GridText[GridTextSouth] = "15    00    00    N";
    Design.GridText[GridTextLatSpacing] = "005    00    00";
    CalcGraticule();
    StoreStandardParallels("45    00    00    N", "20    00    00    N");
    // A sixth of 30 degrees inside either edge.
    EXPECT_THAT(Texts(LatLonStdPar()), ElementsAre("40    00    00    N", "20    00    00    N"));
    StoreStandardParallels("35    00    00    N", "10    00    00    N");
    EXPECT_THAT(Texts(LatLonStdPar()), ElementsAre("40    00    00    N", "20    00    00    N"));
}

TEST_F(BoundaryDialogs, StoredParallelOfACylinderMayLieOutsideTheMap) {
    Choose(ProjEquirectangular);
    ProposeBounds();
    IsSet() = true;
    Design.GridText[GridTextNorth] = "45    00    00    N";
    Design.GridText[GridTextSouth] = "15    00    00    N";
    Design.GridText[GridTextLatSpacing] = "005    00    00";
    CalcGraticule();
    StoreStandardParallels("60    00    00    N", "60    00    00    S");
    EXPECT_THAT(Texts(LatLonStdPar()), ElementsAre("60    00    00    N", "60    00    00    S"));
}

TEST_F(BoundaryDialogs, SouthernParallelOfACylinderMirrorsTheNorthern) {
    for (const std::int16_t projNum : {ProjEquirectangular, ProjCylindricalEqualArea}) {
        Choose(projNum);
        ProposeBounds();
        CalcGraticule();
        LatLonStdPar form;
        EXPECT_FALSE(form.At("LatSouthStdPar").enabled);
        form.Type("LatNorthStdPar", "33    44    55    N");
        EXPECT_EQ(form.At("LatSouthStdPar").text, "33    44    55    S");
        form.PressDefault();
        EXPECT_TRUE(form.Closed());
        EXPECT_THAT(Design.StdParText, ElementsAre("33    44    55    N", "33    44    55    S"));
        EXPECT_DOUBLE_EQ(Design.StdParNorth, 33.0 + 44.0 / 60.0 + 55.0 / 3600.0);
        EXPECT_DOUBLE_EQ(Design.StdParSouth, -Design.StdParNorth);
        EXPECT_EQ(Design.StdParNorthText, "33    44    55    N");
        EXPECT_EQ(Design.StdParSouthText, "33    44    55    S");
    }
}

TEST_F(BoundaryDialogs, RefusedParallelGoesBackToTheDesignsText) {
    Choose(ProjCylindricalEqualArea);
    ProposeBounds();
    CalcGraticule();
    LatLonStdPar form;
    form.Type("LatNorthStdPar", "33    00    00    S");
    form.MoveFocus("OK"); // closed box: Cancel
    EXPECT_EQ(form.At("LatNorthStdPar").text, "45    00    00    N");
    EXPECT_EQ(form.At("LatSouthStdPar").text, "45    00    00    S") << "the mirror image follows";
}

/// A pair of parallels that OK refuses.
struct RefusedPair {
    const char* name;
    std::int16_t projNum;
    const char* latNorth;
    const char* latSouth;
    const char* north;
    const char* south;
    const char* title;
    const char* text;
    const char* field;
};
void PrintTo(const RefusedPair& pair, std::ostream* stream) { *stream << pair.name; }

class RefusedParallels : public BoundaryDialogs, public testing::WithParamInterface<RefusedPair> {};

TEST_P(RefusedParallels, ShowABoxAndTheDialogStays) {
    const RefusedPair& pair = GetParam();
    Choose(pair.projNum);
    ProposeBounds();
    Design.GridText[GridTextNorth] = pair.latNorth;
    Design.GridText[GridTextSouth] = pair.latSouth;
    Design.GridText[GridTextLatSpacing] = "010    00    00";
    CalcGraticule();
    LatLonStdPar form;
    const std::string before = Design.StdParText[StdParTextNorth];
    form.MoveFocus("OK"); // past the checks of the fields
    form.Type("LatNorthStdPar", pair.north);
    form.Type("LatSouthStdPar", pair.south);
    form.Press("OK");
    EXPECT_THAT(machine.boxes.asked, ElementsAre(OkBox(pair.title, pair.text)));
    EXPECT_EQ(form.Focus(), pair.field);
    EXPECT_FALSE(form.Closed());
    EXPECT_EQ(form.At("LatNorthStdPar").text, pair.north);
    EXPECT_EQ(Design.StdParText[StdParTextNorth], before);
}

constexpr const char* NotSymmetric =
    "The latitudes of the NORTHERN- and SOUTHERNMOST STANDARD PARALLELS  cannot be equal, and they cannot be "
    "symmetric about the equator.";
constexpr const char* NorthAboveSouth =
    "The latitude of the NORTHERNMOST STANDARD PARALLEL must be greater than that of the SOUTHERNMOST "
    "STANDARD PARALLEL.";

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, RefusedParallels, testing::Values(
    RefusedPair{"NorthOfTheMap", ProjAlbers, "60    00    00    N", "20    00    00    N", "60    00    00    N", "30    00    00    N",
                "Error: Northernmost standard parallel",
                "The latitude of the NORTHERNMOST STANDARD PARALLEL must be less than that of the NORTHERNMOST LATITUDE of the grid.", "LatNorthStdPar"},
    RefusedPair{"SouthOfTheMap", ProjAlbers, "60    00    00    N", "20    00    00    N", "50    00    00    N", "20    00    00    N",
                "Error: Southernmost standard parallel",
                "The latitude of the SOUTHERNMOST STANDARD PARALLEL must be greater than that of the SOUTHERNMOST LATITUDE of the grid.", "LatSouthStdPar"},
    RefusedPair{"NorthBelowSouth", ProjAlbers, "60    00    00    N", "20    00    00    N", "30    00    00    N", "40    00    00    N",
                "Error: Standard parallels", NorthAboveSouth, "LatNorthStdPar"},
    RefusedPair{"Equal", ProjConformalConic, "60    00    00    N", "20    00    00    N", "30    00    00    N", "30    00    00    N",
                "Error: Standard parallels", NorthAboveSouth, "LatNorthStdPar"},
    RefusedPair{"SymmetricOnConformal", ProjConformalConic, "60    00    00    N", "60    00    00    S", "30    00    00    N", "30    00    00    S",
                "Error: Conformal Conic standard parallels", NotSymmetric, "LatNorthStdPar"},
    RefusedPair{"SymmetricOnEquidistant", ProjEquidistantConic, "60    00    00    N", "60    00    00    S", "30    00    00    N", "30    00    00    S",
                "Error: Standard parallels", NotSymmetric, "LatNorthStdPar"},
    RefusedPair{"SymmetricOnAlbers", ProjAlbers, "60    00    00    N", "60    00    00    S", "30    00    00    N", "30    00    00    S",
                "Error: Standard parallels", NotSymmetric, "LatNorthStdPar"},
    RefusedPair{"NorthPole", ProjConformalConic, "90    00    00    N", "60    00    00    S", "20    00    00    N", "30    00    00    S",
                "Error: Conformal Conic standard parallels",
                "For maps which show the North Pole (90°N), the NORTHERNMOST STANDARD PARALLEL must be further from the equator than the SOUTHERNMOST STANDARD PARALLEL.", "LatNorthStdPar"},
    RefusedPair{"SouthPole", ProjConformalConic, "60    00    00    N", "90    00    00    S", "30    00    00    N", "20    00    00    S",
                "Error: Conformal Conic standard parallels",
                "For maps which show the South Pole (90°S), the SOUTHERNMOST STANDARD PARALLEL must be further from the equator than the NORTHERNMOST STANDARD PARALLEL.", "LatSouthStdPar"}),
    [](const auto& test) { return test.param.name; });

INSTANTIATE_TEST_SUITE_P(All, RefusedByCalcGraticule, testing::Values(
    RefusedBounds{"Reversed", {{"LatN", "20    00    00    N"}, {"LatS", "50    00    00    N"}, {"LatGr", "007    00    00"}}, "Error: Latitude",
                  "The NORTHERNMOST BOUNDARY of the grid is south of the SOUTHERNMOST BOUNDARY.", "LatN"},
    RefusedBounds{"Equal", {{"LatN", "20    00    00    N"}, {"LatS", "20    00    00    N"}, {"LonGr", "007    00    00"}}, "Error: Latitude",
                  "The NORTHERNMOST and SOUTHERNMOST BOUNDARIES of the grid are equal.", "LatN"},
    RefusedBounds{"LatitudesNotDivided", {{"LatGr", "007    00    00"}, {"LonGr", "007    00    00"}}, "Error: Degrees of latitude",
                  "The DEGREES OF LATITUDE BETWEEN GRID MARKS do not yield an integral number of divisions along the latitude axis.", "LatGr"},
    // Equal meridians span 360 degrees.
    RefusedBounds{"LongitudesNotDivided", {{"LonW", "180    00    00    E"}, {"LonE", "180    00    00    E"}, {"LonGr", "007    00    00"}}, "Error: Degrees of longitude",
                  "The DEGREES OF LONGITUDE BETWEEN GRID MARKS do not yield an integral number of divisions along the longitude axis.", "LonGr"},
    RefusedBounds{"NoWidth", {{"LonW", "180    00    00    E"}, {"LonE", "180    00    00    W"}}, "Error: Longitude",
                  "Quelmont cannot plot a map in which the westernmost longitude is 180°E and the easternmost longitude is 180°W, since the longitude range of this map is zero.\n\nTry setting the westernmost longitude to 180°W and the easternmost longitude to 180°E.", "LonW"}),
    [](const auto& test) { return test.param.name; });
// clang-format on

// ---- Azimuthal maps

TEST_F(BoundaryDialogs, AzimuthalBoundsAreAcceptedAtOnce) {
    for (const std::int16_t projNum : {ProjGnomonic, ProjStereographic, ProjOrthographic,
                                       ProjAzimuthalEquidistant, ProjAzimuthalEqualArea}) {
        Choose(projNum);
        Design.StdParNorthText = "11    00    00    N";
        LatLonBoundsAz form;
        EXPECT_EQ(form.Caption(), "Azimuthal Projection Boundaries");
        TypeAll(form, {{"LatCentral", "50    00    00    S"},
                       {"LonCentral", "010    00    00    E"},
                       {"LatGr", "010    00    00"},
                       {"LonGr", "020    00    00"},
                       {"AzRangeDist", "055    00    00"}});
        form.PressDefault();
        EXPECT_TRUE(form.Closed());
        EXPECT_TRUE(IsSet());
        EXPECT_TRUE(Design.BoundsChanged);
        EXPECT_FALSE(Design.DialogCancelled);
        EXPECT_EQ(Design.RangeSec, 55 * 3600);
        EXPECT_EQ(Design.LatCentral, -50.0);
        EXPECT_EQ(Design.GridText[GridTextCentralLat], "50    00    00    S");
        EXPECT_EQ(Design.GridText[GridTextRange], "055    00    00");
        EXPECT_EQ(Design.StdParNorthText, "00    00    00    N");
        EXPECT_EQ(Design.StdParSouthText, "00    00    00    S");
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(BoundaryDialogs, RangeThatSlippedInIsRefusedByOk) {
    Choose(ProjGnomonic);
    LatLonBoundsAz form;
    form.MoveFocus("OK");
    form.Type("AzRangeDist", "090    00    00");
    form.Press("OK");
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(OkBox("Error: Range of map", "RANGE OF MAP IN DEGREES must be < 90°.")));
    EXPECT_EQ(form.Focus(), "AzRangeDist");
    EXPECT_EQ(Design.GridText[GridTextRange], "060    00    00");
}

TEST_F(BoundaryDialogs, AzimuthalGridThatDoesNotDivideIsRefusedInItsDialog) {
    Choose(ProjStereographic);
    LatLonBoundsAz form;
    form.Type("LatGr", "007    00    00");
    machine.boxes.Answer(BoxAnswer::Retry);
    form.PressDefault();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(RetryBox("Error: Degrees of latitude",
                                     "The DEGREES OF LATITUDE BETWEEN GRID MARKS must yield an integer when "
                                     "divided into 180 degrees.",
                                     BoxAnswer::Retry)));
    EXPECT_EQ(form.Focus(), "LatGr");
    EXPECT_FALSE(form.Closed());
    EXPECT_FALSE(Design.ProjOffMap);
    form.Type("LatGr", "010    00    00");
    form.Type("LonGr", "007    00    00");
    form.PressDefault();
    EXPECT_THAT(machine.boxes.Taken(),
                ElementsAre(RetryBox("Error: Degrees of longitude",
                                     "The DEGREES OF LONGITUDE BETWEEN GRID MARKS must yield an integer when "
                                     "divided into 360 degrees.",
                                     BoxAnswer::Cancel)));
    EXPECT_FALSE(form.Closed());
}

TEST_F(BoundaryDialogs, RangeFieldShowsTheAngleAlone) {
    Choose(ProjAzimuthalEquidistant);
    ConstantGrid();
    IsSet() = true;
    Design.GridText[GridTextRange] = "081    15    30    E"; // as the vertical perspective leaves its horizon
    EXPECT_EQ(LatLonBoundsAz().At("AzRangeDist").text, "081    15    30");
}

TEST_F(BoundaryDialogs, HeightIsShownInThreeUnits) {
    Choose(ProjVerticalPerspective);
    LatLonBoundsVp form;
    EXPECT_EQ(form.Caption(), "Azimuthal Projection Boundaries");
    EXPECT_EQ(form.At("VpDistanceKM").text, "00,035,840");
    // 35840 km: x 0.621371192 = 22269.94, / 1.8532488 = 19338.98.
    EXPECT_EQ(form.At("VpDistanceSM").text, "00,022,270");
    EXPECT_EQ(form.At("VpDistanceNM").text, "00,019,339");
    form.Type("VpDistanceKM", "00,001,000");
    EXPECT_EQ(form.At("VpDistanceSM").text, "00,000,621");
    EXPECT_EQ(form.At("VpDistanceNM").text, "00,000,540"); // 539.59
}

TEST_F(BoundaryDialogs, HeightIsStoredAsBareDigits) {
    Choose(ProjVerticalPerspective);
    LatLonBoundsVp form;
    form.Type("VpDistanceKM", "00,001,000");
    form.PressDefault();
    EXPECT_TRUE(form.Closed());
    EXPECT_EQ(Design.GridText[GridTextHeight], "00001000");
    EXPECT_EQ(Design.VpDistanceKm, 1000.0);
    EXPECT_TRUE(IsSet());
    EXPECT_TRUE(Design.BoundsChanged);
    EXPECT_EQ(Design.StdParSouthText, "00    00    00    S");
}

// ---- Interruptions

class InterruptionsDialog : public BoundaryDialogs {
protected:
    InterruptionsDialog() {
        Choose(ProjInterruptedMollweide);
        ProposeBounds();
        CalcGraticule();
    }
};

TEST_F(InterruptionsDialog, ProposesTwoOceansInEachHemisphere) {
    Design.LobeText[LobeTextCountNorth] = "3";
    const LatLonInterrupt form;
    EXPECT_EQ(form.Caption(), "Longitudes of Projection Interruptions");
    EXPECT_THAT(Texts(form),
                ElementsAre("100    00    00    E", "100    00    00    W", "000    00    00    W",
                            "140    00    00    E", "070    00    00    W", "000    00    00    W"));
    EXPECT_EQ(form.At("NumInterrupt(0)").value, 2);
    EXPECT_EQ(form.At("NumInterrupt(1)").value, 2);
    EXPECT_EQ(form.At("Hemisphere1").text, "Northern Hemisphere Interruptions");
    EXPECT_EQ(form.At("Hemisphere2").text, "Southern Hemisphere Interruptions");
    for (const char* const row : {"1", "2"}) {
        EXPECT_EQ(form.At(std::string("LonW") + row).text, "020    00    00    E");
        EXPECT_EQ(form.At(std::string("LonE") + row).text, "020    00    00    E");
        EXPECT_EQ(form.At(std::string("LonGrid") + row).text, "010    00    00");
    }
}

TEST_F(InterruptionsDialog, KeepsWhatWasAccepted) {
    IsSet() = true;
    Design.LobeText[LobeTextCountNorth] = "1";
    Design.LobeText[LobeTextNorth] = "050    00    00    W";
    const LatLonInterrupt form;
    EXPECT_EQ(form.At("NumInterrupt(0)").value, 1);
    EXPECT_EQ(form.At("LonInt(0)").text, "050    00    00    W");
}

TEST_F(InterruptionsDialog, EnablesAsManyFieldsAsThereAreInterruptions) {
    LatLonInterrupt form;
    for (const int count : {0, 1, 3, 2}) {
        form.Spin("NumInterrupt(1)", count);
        for (int k = 0; k < 3; ++k) {
            EXPECT_EQ(form.At("LonInt(" + std::to_string(3 + k) + ")").enabled, k < count) << count << k;
        }
    }
    EXPECT_FALSE(form.At("LonInt(2)").enabled) << "the north has its own number";
    EXPECT_EQ(form.At("NumInterrupt(1)").maximum, 3);
}

TEST_F(InterruptionsDialog, IsStoredWithTheOrderOfItsLobes) {
    LatLonInterrupt form;
    form.Spin("NumInterrupt(1)", 1);
    form.Type("LonInt(3)", "150    00    00    W");
    form.PressDefault();
    EXPECT_TRUE(form.Closed());
    EXPECT_TRUE(IsSet());
    EXPECT_TRUE(Design.BoundsChanged);
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_EQ(Design.LobeText[LobeTextCountNorth], "2");
    EXPECT_EQ(Design.LobeText[LobeTextCountSouth], "1");
    EXPECT_EQ(Design.LobeText[LobeTextSouth], "150    00    00    W");
    EXPECT_THAT(std::vector<std::string>(Design.LobeLonText.begin(), Design.LobeLonText.begin() + 7),
                ElementsAre("020    00    00    E", "100    00    00    E", "100    00    00    W",
                            "020    00    00    E", "020    00    00    E", "150    00    00    W",
                            "020    00    00    E"));
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(InterruptionsDialog, RefusedOneGetsTheFocusAndLeavesTheLobesAlone) {
    const auto lobes = Design.LobeLonText;
    LatLonInterrupt form;
    const auto texts = Design.LobeText;
    form.Type("LonInt(4)", "140    00    00    E");
    form.PressDefault();
    EXPECT_FALSE(form.Closed());
    EXPECT_EQ(form.Focus(), "LonInt(4)");
    EXPECT_THAT(
        machine.boxes.asked,
        ElementsAre(OkBox("Interrupted Longitude Error",
                          "Interrupted longitude #2 in the Southern hemisphere equals\n"
                          "interrupted longitude #1.\n\n"
                          "As you view the interrupted projection, the longitude of each interruption\n"
                          "should lie east (to the right) of the previous interruption; or, in the case\n"
                          "of the first interruption, east (to the right) of the left (western)\n"
                          "map boundary.")));
    EXPECT_EQ(Design.LobeText, texts);
    EXPECT_EQ(Design.LobeLonText, lobes);
    EXPECT_FALSE(IsSet());
}

/// Interruptions that the dialog refuses, on a map from 10 to 50 degrees east with a grid of 10.
struct RefusedRow {
    const char* name;
    std::vector<const char*> longitudes;
    std::int16_t code; ///< within its hemisphere
    int field;         ///< within its hemisphere
};
void PrintTo(const RefusedRow& row, std::ostream* stream) { *stream << row.name; }

class RefusedInterruptions : public BoundaryDialogs, public testing::WithParamInterface<RefusedRow> {
protected:
    void Refuse(int hemisphere, const char* west, const char* east) {
        Choose(ProjInterruptedMollweide);
        ProposeBounds();
        IsSet() = true;
        Design.GridText[GridTextWest] = west;
        Design.GridText[GridTextEast] = east;
        CalcGraticule();
        ProposeLobes();
        Design.LobeText[LobeTextCountNorth] = "0";
        Design.LobeText[LobeTextCountSouth] = "0";
        LatLonInterrupt form;
        form.Spin("NumInterrupt(" + std::to_string(hemisphere) + ")",
                  static_cast<int>(GetParam().longitudes.size()));
        const int first = 3 * hemisphere;
        for (std::size_t k = 0; k < GetParam().longitudes.size(); ++k) {
            form.Type("LonInt(" + std::to_string(first + static_cast<int>(k)) + ")",
                      GetParam().longitudes[k]);
        }
        form.PressDefault();
        ASSERT_EQ(machine.boxes.asked.size(), 1U);
        EXPECT_EQ(machine.boxes.asked[0].title, "Interrupted Longitude Error");
        EXPECT_EQ(machine.boxes.asked[0].text,
                  LonInterruptMessage(static_cast<std::int16_t>(GetParam().code + 14 * hemisphere)));
        EXPECT_EQ(form.Focus(), "LonInt(" + std::to_string(first + GetParam().field) + ")");
        EXPECT_FALSE(form.Closed());
        machine.boxes.Taken();
    }
};

TEST_P(RefusedInterruptions, ShowTheirMessageInEitherHemisphere) {
    const bool allRound = GetParam().name == std::string("WestOfTheFirst");
    const char* const west = allRound ? "020    00    00    E" : "010    00    00    E";
    const char* const east = allRound ? "020    00    00    E" : "050    00    00    E";
    Refuse(0, west, east);
    Refuse(1, west, east);
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, RefusedInterruptions, testing::Values(
    RefusedRow{"FirstOutside",        {"060    00    00    E"}, 1, 0},
    RefusedRow{"SecondOutside",       {"020    00    00    E", "060    00    00    E"}, 2, 1},
    RefusedRow{"ThirdOutside",        {"020    00    00    E", "030    00    00    E", "060    00    00    E"}, 3, 2},
    RefusedRow{"WestOfTheFirst",      {"100    00    00    E", "020    00    00    E"}, 5, 1},
    RefusedRow{"EqualsLeft",          {"010    00    00    E"}, 8, 0},
    RefusedRow{"SecondEqualsFirst",   {"020    00    00    E", "020    00    00    E"}, 9, 1},
    RefusedRow{"ThirdEqualsSecond",   {"020    00    00    E", "030    00    00    E", "030    00    00    E"}, 10, 2},
    RefusedRow{"LastEqualsRight",     {"020    00    00    E", "050    00    00    E"}, 11, 1},
    RefusedRow{"FirstBesideTheGrid",  {"015    00    00    E"}, 12, 0},
    RefusedRow{"SecondBesideTheGrid", {"020    00    00    E", "035    00    00    E"}, 13, 1},
    RefusedRow{"ThirdBesideTheGrid",  {"020    00    00    E", "030    00    00    E", "045    00    00    E"}, 14, 2},
    RefusedRow{"WesternmostFaultFirst", {"015    00    00    E", "060    00    00    E"}, 12, 0}),
    [](const auto& test) { return test.param.name; });
// clang-format on

TEST_F(BoundaryDialogs, BoundsGoOnToTheInterruptionsAndCloseWithThem) {
    Choose(ProjInterruptedMollweide);
    machine.forms.Script("LatLonInterrupt", [](Form& form) { form.PressDefault(); });
    LatLonBounds form;
    form.PressDefault();
    EXPECT_THAT(machine.forms.shown, ElementsAre("LatLonInterrupt"));
    EXPECT_TRUE(form.Closed());
    EXPECT_TRUE(IsSet());
}

// ---- UTM

TEST_F(BoundaryDialogs, SpheroidsAreListedWithALeadingBlank) {
    const UtmSpheroid form;
    EXPECT_EQ(form.Caption(), "Select UTM Spheroid");
    EXPECT_THAT(form.At("Ellipsoid").items,
                ElementsAre(" Airy 1830", " Everest 1830", " Bessel 1841", " Clarke 1866", " Clarke 1880",
                            " International 1924", " Krasovsky 1940", " Australian 1965", " WGS84 1984"));
    EXPECT_EQ(form.At("Ellipsoid").value, 3) << "Clarke 1866";
}

TEST_F(BoundaryDialogs, UnknownSpheroidSelectsNoneAndStays) {
    Design.SpheroidName = "Earth 3000";
    machine.forms.Script("UtmParameters", [](Form& form) { form.PressCancel(); });
    UtmSpheroid form;
    EXPECT_EQ(form.At("Ellipsoid").value, -1);
    form.PressDefault();
    EXPECT_EQ(Design.SpheroidName, "Earth 3000");
}

TEST_F(BoundaryDialogs, EachOkOfTheUtmChainOpensTheNextDialog) {
    Choose(ProjUtm);
    machine.forms.Script("UtmSpheroid", [](Form& form) {
        form.Choose("Ellipsoid", 8);
        form.PressDefault();
        EXPECT_TRUE(form.Closed());
    });
    machine.forms.Script("UtmParameters", [](Form& form) {
        EXPECT_EQ(form.Caption(), "Select UTM Parameters");
        EXPECT_THAT(Texts(form), ElementsAre("009    00    00    W", "00    00    00    N", "0,500,000",
                                             "00,000,000", "0.9996"));
        EXPECT_TRUE(Design.DialogCancelled);
        TypeAll(form, {{"UtmLonCentral", "015    00    00    E"},
                       {"UtmLatOrigin", "10    00    00    N"},
                       {"UtmEasting", "0,400,000"},
                       {"UtmNorthing", "01,000,000"},
                       {"UtmScale", "0.9990"}});
        form.PressDefault();
        EXPECT_TRUE(form.Closed());
    });
    machine.forms.Script("UtmCoords", [](Form& form) {
        EXPECT_EQ(form.Caption(), "UTM Projection Boundaries");
        EXPECT_EQ(form.At("Heading").text, "Meters");
        EXPECT_THAT(Texts(form), ElementsAre("06,200,000", "05,600,000", "00,100,000", "0,300,000",
                                             "0,800,000", "0,100,000"));
        EXPECT_FALSE(Design.DialogCancelled);
        form.Type("UtmLatN", "06,100,000");
        form.PressDefault();
        EXPECT_TRUE(form.Closed());
    });
    ShowBoundaryDialog();
    EXPECT_THAT(machine.forms.shown, ElementsAre("UtmSpheroid", "UtmParameters", "UtmCoords"));
    EXPECT_EQ(Design.SpheroidName, "WGS84 1984");
    EXPECT_EQ(Design.SpheroidA, 6378137.0);
    EXPECT_THAT(Design.UtmText,
                ElementsAre("015    00    00    E", "10    00    00    N", "0400000", "01000000", "0.9990",
                            "06100000", "05600000", "00100000", "0300000", "0800000", "0100000"));
    EXPECT_EQ(Design.UtmK0, 0.999);
    EXPECT_EQ(Design.LatNorthSec, 6100000);
    EXPECT_EQ(Design.MapYMax, 6100000.0);
    EXPECT_TRUE(Design.BoundsChanged);
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(BoundaryDialogs, CancelAnywhereEndsTheUtmChain) {
    Choose(ProjUtm);
    machine.forms.Script("UtmSpheroid", [](Form& form) { form.PressCancel(); });
    ShowBoundaryDialog();
    EXPECT_TRUE(Design.DialogCancelled);
    machine.forms.Script("UtmSpheroid", [](Form& form) { form.PressDefault(); });
    machine.forms.Script("UtmParameters", [](Form& form) { form.PressCancel(); });
    ShowBoundaryDialog();
    EXPECT_TRUE(Design.DialogCancelled);
    machine.forms.Script("UtmSpheroid", [](Form& form) { form.PressDefault(); });
    machine.forms.Script("UtmParameters", [](Form& form) { form.PressDefault(); });
    machine.forms.Script("UtmCoords", [](Form& form) { form.PressCancel(); });
    ShowBoundaryDialog();
    EXPECT_TRUE(Design.DialogCancelled);
    EXPECT_FALSE(Design.BoundsChanged);
}

/// What CalcUtmGrid refuses, through the dialog.
struct RefusedMetres {
    const char* name;
    std::map<std::string, std::string> texts;
    const char* text;
    const char* field;
};
void PrintTo(const RefusedMetres& metres, std::ostream* stream) { *stream << metres.name; }

class RefusedByCalcUtmGrid : public BoundaryDialogs, public testing::WithParamInterface<RefusedMetres> {};

TEST_P(RefusedByCalcUtmGrid, RetryGivesTheFocusToItsField) {
    Choose(ProjUtm);
    UtmCoords form;
    TypeAll(form, GetParam().texts);
    machine.boxes.Answer(BoxAnswer::Retry);
    form.PressDefault();
    EXPECT_THAT(machine.boxes.asked,
                ElementsAre(RetryBox("Error: UTM projection", GetParam().text, BoxAnswer::Retry)));
    EXPECT_EQ(form.Focus(), GetParam().field);
    EXPECT_FALSE(form.Closed());
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_FALSE(Design.BoundsChanged);
}

TEST_P(RefusedByCalcUtmGrid, CancelWritesTheStoredTextBack) {
    Choose(ProjUtm);
    UtmCoords form;
    TypeAll(form, GetParam().texts);
    const std::string refused = form.At(GetParam().field).text;
    form.PressDefault();
    EXPECT_FALSE(form.Closed());
    EXPECT_EQ(form.At(GetParam().field).text, refused) << "stored before it was refused";
    EXPECT_EQ(form.Focus(), "OK");
}

// clang-format off
INSTANTIATE_TEST_SUITE_P(All, RefusedByCalcUtmGrid, testing::Values(
    RefusedMetres{"NoSpacingNorth", {{"UtmLatGrid", "00,000,000"}, {"UtmLonGrid", "0,000,000"}},
                  "The METERS BETWEEN NORTH/SOUTH GRID MARKS must be > 0.", "UtmLatGrid"},
    RefusedMetres{"NoSpacingEast", {{"UtmLonGrid", "0,000,000"}, {"UtmLatN", "06,200,001"}},
                  "The METERS BETWEEN EAST/WEST GRID MARKS must be > 0.", "UtmLonGrid"},
    RefusedMetres{"HeightNotDivided", {{"UtmLatN", "05,500,001"}},
                  "The METERS BETWEEN NORTH/SOUTH GRID MARKS does not yield an integral number of divisions along the axis.", "UtmLatGrid"},
    RefusedMetres{"Reversed", {{"UtmLatN", "05,500,000"}, {"UtmLonE", "0,800,001"}},
                  "The NORTHERN BOUNDARY is south of the SOUTHERN BOUNDARY.", "UtmLatN"},
    RefusedMetres{"EqualHeights", {{"UtmLatN", "05,600,000"}, {"UtmLonE", "0,800,001"}},
                  "The NORTHERN and SOUTHERN BOUNDARIES are equal.", "UtmLatN"},
    RefusedMetres{"WidthNotDivided", {{"UtmLonE", "0,200,001"}},
                  "The METERS BETWEEN EAST/WEST GRID MARKS does not yield an integral number of divisions along the axis.", "UtmLonGrid"},
    RefusedMetres{"EastOfWest", {{"UtmLonE", "0,200,000"}},
                  "The EASTERN BOUNDARY is west of the WESTERN BOUNDARY.", "UtmLonW"},
    RefusedMetres{"EqualEastings", {{"UtmLonE", "0,300,000"}},
                  "The EASTERN and WESTERN BOUNDARIES are equal.", "UtmLonW"}),
    [](const auto& test) { return test.param.name; });
// clang-format on

// ---- Which dialog

TEST_F(BoundaryDialogs, EachProjectionOpensTheDialogOfItsFamily) {
    for (const ProjectionEntry& entry : Projections) {
        Choose(entry.ProjNum);
        const char* const expected = entry.ProjNum == 17                          ? "UtmSpheroid"
                                     : entry.ProjNum == 29                        ? "LatLonBoundsVp"
                                     : entry.ProjNum >= 26 && entry.ProjNum <= 31 ? "LatLonBoundsAz"
                                                                                  : "LatLonBounds";
        machine.forms.shown.clear();
        machine.forms.Script(expected, [](Form& form) { form.PressCancel(); });
        ShowBoundaryDialog();
        EXPECT_THAT(machine.forms.shown, ElementsAre(expected)) << entry.ProjNum;
    }
}

TEST_F(BoundaryDialogs, F1OpensTheHelpOfTheDialog) {
    Choose(ProjRobinson);
    const LatLonBounds form;
    form.PressF1();
    ASSERT_EQ(machine.help.shown.size(), 1U);
    EXPECT_EQ(machine.help.shown[0].first, 15);
}

} // namespace
} // namespace quelmont
