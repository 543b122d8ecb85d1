// What the dialog of the bounds proposes, what its OK refuses and what it stores.

#include "dialogs/bounds/boundary_dialogs.h"
#include "dialogs/bounds/lat_lon_bounds.h"
#include "dialogs/bounds/lat_lon_bounds_az.h"
#include "dialogs/bounds/lat_lon_interrupt.h"
#include "graticule/calc_graticule.h"
#include "projection/projection_table.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::ElementsAreArray;
using testing::IsEmpty;

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

// clang-format off
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

} // namespace
} // namespace quelmont
