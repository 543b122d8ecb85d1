// The bounds of azimuthal maps and of perspectives.

#include "dialogs/bounds/boundary_dialogs.h"
#include "dialogs/bounds/lat_lon_bounds_az.h"
#include "graticule/calc_graticule.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

} // namespace
} // namespace quelmont
