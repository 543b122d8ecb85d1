// Standard parallels: which are proposed, and which the dialog refuses.

#include "dialogs/bounds/boundary_defaults.h"
#include "dialogs/bounds/boundary_dialogs.h"
#include "dialogs/bounds/lat_lon_bounds.h"
#include "dialogs/bounds/lat_lon_interrupt.h"
#include "dialogs/bounds/lat_lon_std_par.h"
#include "graticule/calc_graticule.h"
#include "support/fresh_program.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

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

// clang-format on
} // namespace
} // namespace quelmont
