// The three dialogs of a UTM map, one after the other.

#include "dialogs/bounds/boundary_dialog.h"
#include "dialogs/bounds/boundary_dialogs.h"
#include "dialogs/bounds/lat_lon_interrupt.h"
#include "dialogs/bounds/utm_dialogs.h"
#include "projection/utm.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

} // namespace
} // namespace quelmont
