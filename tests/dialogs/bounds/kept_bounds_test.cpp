// What is left of the design's bounds when dialogs are cancelled, and what a draw or another projection
// has left when they open.

#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_dialog.h"
#include "dialogs/bounds/boundary_dialog_names.h"
#include "dialogs/bounds/boundary_dialogs.h"
#include "dialogs/bounds/lat_lon_bounds.h"
#include "dialogs/bounds/lat_lon_bounds_az.h"
#include "dialogs/bounds/lat_lon_interrupt.h"
#include "dialogs/bounds/lat_lon_std_par.h"
#include "dialogs/bounds/utm_dialogs.h"
#include "graticule/calc_graticule.h"
#include "graticule/calculate_bounds.h"
#include "projection/param_select.h"
#include "projection/param_std_parallel.h"
#include "projection/projection_table.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace quelmont {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The program as it starts, the default map accepted.
class KeptBounds : public BoundaryDialogs {
protected:
    KeptBounds() {
        ConstantGrid();
        CalculateBounds();
        ParamStdParallel();
        ParamSelect();
    }

    void Script(const std::string& dialog, std::function<void(Form&)> steps) {
        machine.forms.Script(dialog, std::move(steps));
    }
    void Accept(const std::string& dialog) {
        Script(dialog, [](Form& form) { form.PressDefault(); });
    }
    void Cancel(const std::string& dialog) {
        Script(dialog, [](Form& form) { form.PressCancel(); });
    }
    /// Chooses a projection and presses OK wherever its dialogs ask.
    void AcceptDefaults(std::int16_t projNum) {
        Choose(projNum);
        for (const std::string& dialog : BoundaryDialogsOf(projNum)) {
            Accept(dialog);
        }
        ShowBoundaryDialog();
        EXPECT_TRUE(Design.BoundsChanged) << Design.ProjName;
        EXPECT_THAT(machine.boxes.Taken(), IsEmpty()) << Design.ProjName;
    }

    /// The texts of the design and the numbers made of them, in full.
    static std::string Snapshot() {
        std::ostringstream all;
        all.precision(17);
        const auto texts = [&](const auto& array) {
            for (const std::string& text : array) {
                all << text << '|';
            }
        };
        texts(Design.GridText);
        texts(Design.StdParText);
        texts(Design.LobeText);
        texts(Design.UtmText);
        texts(Design.LobeLonText);
        texts(std::array{Design.SpheroidName, Design.LatNorthText, Design.LatSouthText, Design.LonWestText,
                         Design.LonEastText, Design.LatCentralText, Design.LonCentralText,
                         Design.StdParNorthText, Design.StdParSouthText});
        for (const double number :
             {Design.LatNorth,       Design.LatSouth,    Design.LatGrid,    Design.LonWest,
              Design.LonEast,        Design.LonZero,     Design.LonSpan,    Design.LonGrid,
              Design.LonMiddle,      Design.LatCentral,  Design.LonCentral, Design.CosLatCentral,
              Design.CosRange,       Design.StdParNorth, Design.CosStdPar,  Design.ConeConstant,
              Design.ConicRho0,      Design.VpP,         Design.SpheroidA,  Design.UtmK0,
              Design.LobeCentral[1], Design.MapXMin,     Design.MapXMax,    Design.MapYMin,
              Design.MapYMax}) {
            all << number << '|';
        }
        all << Design.LatNorthSec << '|' << Design.LonWestSec << '|' << Design.LonSpanSec << '|'
            << Design.RangeSec << '|' << Design.LatGridCount << '|' << Design.BoundsProjNum;
        return all.str();
    }
};

// ---- The mark that a draw leaves

class AfterADraw : public KeptBounds, public testing::WithParamInterface<ProjectionEntry> {};

TEST_P(AfterADraw, FirstOkOfEachDialogIsTaken) {
    Choose(GetParam().ProjNum);
    Design.ProjOffMap = true; // the last point of the last draw
    for (const std::string& dialog : BoundaryDialogsOf(GetParam().ProjNum)) {
        Script(dialog, [](Form& form) {
            Design.ProjOffMap = true;
            form.PressDefault();
            EXPECT_TRUE(form.Closed()) << form.ClassName();
        });
    }
    ShowBoundaryDialog();
    EXPECT_TRUE(Design.BoundsChanged);
    EXPECT_FALSE(Design.DialogCancelled);
    EXPECT_EQ(Design.BoundsProjNum, GetParam().ProjNum);
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(Of, AfterADraw, testing::ValuesIn(Projections),
                         [](const auto& entry) { return "ProjNum" + std::to_string(entry.param.ProjNum); });

TEST_F(KeptBounds, RefusedBoundsLeaveNoMark) {
    Design.GridText[GridTextLatSpacing] = "007    00    00";
    EXPECT_FALSE(CalculateBounds());
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_EQ(Design.LastRefusal.Field, "LatGr");
    Choose(ProjUtm);
    Design.UtmText[UtmTextNorthingSpacing] = "00000000";
    EXPECT_FALSE(CalculateBounds());
    EXPECT_FALSE(Design.ProjOffMap);
    EXPECT_EQ(Design.LastRefusal.Field, "UtmLatGrid");
}

// ---- Cancel

TEST_F(KeptBounds, CancelledDialogGivesEverythingBack) {
    const std::string before = Snapshot();
    for (const ProjectionEntry& entry : Projections) {
        Choose(entry.ProjNum);
        Cancel(BoundaryDialogsOf(entry.ProjNum).front());
        ShowBoundaryDialog();
        EXPECT_EQ(Snapshot(), before) << entry.ProjName;
        EXPECT_TRUE(Design.DialogCancelled);
    }
}

TEST_F(KeptBounds, BoundsAreAsBeforeWhenTheFollowUpWasCancelled) {
    for (const std::int16_t projNum : {ProjEquirectangular, ProjEquidistantConic, ProjConformalConic,
                                       ProjAlbers, ProjCylindricalEqualArea, ProjInterruptedMollweide}) {
        AcceptDefaults(projNum);
        const std::string before = Snapshot();
        Cancel(BoundaryDialogsOf(projNum).back());
        Script("LatLonBounds", [&](Form& form) {
            form.Type("LatN", "50    00    00    N");
            form.Type("LatS", "20    00    00    N");
            form.Type("LatGr", "010    00    00");
            form.PressDefault();
            EXPECT_FALSE(form.Closed());
            EXPECT_EQ(Snapshot(), before) << "at once";
            EXPECT_EQ(form.At("LatN").text, "50    00    00    N") << "what was typed stays to be mended";
            form.PressCancel();
        });
        ShowBoundaryDialog();
        EXPECT_EQ(Snapshot(), before) << Design.ProjName;
        EXPECT_TRUE(Design.DialogCancelled);
    }
}

TEST_F(KeptBounds, BoundsThatWereRefusedAreGivenBackByCancel) {
    for (const std::int16_t projNum : {ProjRobinson, ProjStereographic, ProjVerticalPerspective}) {
        AcceptDefaults(projNum);
        const std::string before = Snapshot();
        Script(BoundaryDialogsOf(projNum).front(), [](Form& form) {
            form.Type("LonGr", "007    00    00");
            form.PressDefault(); // refused: the box is closed
            EXPECT_FALSE(form.Closed());
            EXPECT_EQ(Design.GridText[GridTextLonSpacing], "007    00    00");
            form.PressCancel();
        });
        ShowBoundaryDialog();
        EXPECT_EQ(machine.boxes.Taken().size(), 1U);
        EXPECT_EQ(Snapshot(), before) << Design.ProjName;
    }
}

TEST_F(KeptBounds, MetresAreAsBeforeWhereverTheirChainEnds) {
    AcceptDefaults(ProjUtm);
    const std::string before = Snapshot();
    const auto chooseSpheroid = [](Form& form) {
        form.Choose("Ellipsoid", 8);
        form.PressDefault();
    };
    const auto changeZone = [](Form& form) {
        form.Type("UtmLonCentral", "015    00    00    E");
        form.PressDefault();
    };
    Script("UtmSpheroid", chooseSpheroid);
    Cancel("UtmParameters");
    ShowBoundaryDialog();
    EXPECT_EQ(Snapshot(), before);

    Script("UtmSpheroid", chooseSpheroid);
    Script("UtmParameters", changeZone);
    Script("UtmCoords", [](Form& form) {
        form.Type("UtmLatGrid", "00,070,000");
        form.PressDefault(); // 600 km are no number of them
        form.PressCancel();
    });
    ShowBoundaryDialog();
    EXPECT_EQ(machine.boxes.Taken().size(), 1U);
    EXPECT_EQ(Snapshot(), before);
    EXPECT_TRUE(Design.DialogCancelled);
}

// ---- What another projection has left

TEST_F(KeptBounds, ProjectionThatCannotShowThePolesOpensWithItsOwnBoundsAgain) {
    AcceptDefaults(ProjMercator);
    AcceptDefaults(ProjRobinson);
    Choose(ProjMercator);
    EXPECT_EQ(LatLonBounds().At("LatN").text, "80    00    00    N");
    AcceptDefaults(ProjMercator);
    AcceptDefaults(ProjConformalConic);
    AcceptDefaults(ProjRobinson);
    Choose(ProjConformalConic);
    EXPECT_EQ(LatLonBounds().At("LatS").text, "60    00    00    S");
    AcceptDefaults(ProjConformalConic);
}

TEST_F(KeptBounds, ProjectionOfASmallerRangeOpensWithItsOwnRangeAgain) {
    AcceptDefaults(ProjGnomonic);
    AcceptDefaults(ProjAzimuthalEqualArea);
    Choose(ProjGnomonic);
    EXPECT_EQ(LatLonBoundsAz().At("AzRangeDist").text, "060    00    00");
    AcceptDefaults(ProjGnomonic);
    Choose(ProjAzimuthalEqualArea);
    EXPECT_EQ(LatLonBoundsAz().At("AzRangeDist").text, "060    00    00") << "it can show that";
}

TEST_F(KeptBounds, GridThatDividesAPartOnlyGivesWayToTheDefaultsOfACircle) {
    AcceptDefaults(ProjStereographic);
    Choose(ProjRobinson);
    Script("LatLonBounds", [](Form& form) {
        form.Type("LatN", "70    00    00    N");
        form.Type("LatS", "00    00    00    N");
        form.Type("LatGr", "007    00    00");
        form.PressDefault();
    });
    ShowBoundaryDialog();
    Choose(ProjStereographic);
    LatLonBoundsAz circle;
    EXPECT_EQ(circle.At("LatGr").text, "030    00    00");
    circle.PressCancel();
    Choose(ProjRobinson);
    EXPECT_EQ(LatLonBounds().At("LatGr").text, "007    00    00");
}

TEST_F(KeptBounds, PairOfAConeIsNoneForACylinder) {
    for (const std::int16_t cylinder : {ProjEquirectangular, ProjCylindricalEqualArea}) {
        AcceptDefaults(cylinder);
        AcceptDefaults(ProjAlbers); // 60 N and the equator
        Choose(cylinder);
        const LatLonStdPar form;
        EXPECT_EQ(form.At("LatNorthStdPar").text, "45    00    00    N");
        EXPECT_EQ(form.At("LatSouthStdPar").text, "45    00    00    S");
        // A pair in the south, which is not even a mirrored one.
        EXPECT_TRUE(AcceptStandardParallels("45    00    00    N", "45    00    00    S"));
        Design.StdParText = {"10    00    00    S", "10    00    00    N"};
        EXPECT_EQ(LatLonStdPar().At("LatNorthStdPar").text, "45    00    00    N");
    }
    EXPECT_THAT(machine.boxes.asked, IsEmpty());
}

TEST_F(KeptBounds, PairOfACylinderIsNoneForACone) {
    for (const std::int16_t cone : {ProjAlbers, ProjEquidistantConic}) {
        AcceptDefaults(cone);
        AcceptDefaults(ProjEquirectangular); // 45 N and 45 S, symmetric about the equator
        Choose(cone);
        EXPECT_EQ(LatLonStdPar().At("LatNorthStdPar").text, "60    00    00    N");
        AcceptDefaults(cone);
    }
}

TEST_F(KeptBounds, OneParallelMustBeNorthWhenItIsAccepted) {
    for (const std::int16_t cylinder : {ProjEquirectangular, ProjCylindricalEqualArea}) {
        Choose(cylinder);
        LatLonStdPar form;
        form.MoveFocus("OK"); // past the check of the field
        form.Type("LatNorthStdPar", "10    00    00    S");
        form.Press("OK");
        EXPECT_THAT(machine.boxes.Taken(),
                    ElementsAre(AskedBox{"Error: Northernmost standard parallel", "Hemisphere must be N",
                                         BoxButtons::Ok, BoxIcon::Exclamation, BoxAnswer::Ok}));
        EXPECT_FALSE(form.Closed());
        EXPECT_EQ(form.Focus(), "LatNorthStdPar");
    }
}

TEST_F(KeptBounds, BoundsThatNoInterruptionsFitGiveWayToTheDefaults) {
    AcceptDefaults(ProjInterruptedMollweide);
    AcceptDefaults(ProjRobinson); // 180 W with a grid of 45 degrees
    AcceptDefaults(ProjInterruptedMollweide);
    EXPECT_EQ(Design.GridText[GridTextWest], "020    00    00    E");
    EXPECT_EQ(Design.GridText[GridTextLonSpacing], "010    00    00");
}

TEST_F(KeptBounds, LobesThatNewBoundsRefuseAreProposedAnew) {
    AcceptDefaults(ProjInterruptedMollweide);
    Design.LobeText[LobeTextNorth] = "090    00    00    E";
    EXPECT_EQ(LatLonInterrupt().At("LonInt(0)").text, "090    00    00    E");
    Design.LobeText[LobeTextNorth] = "095    00    00    E"; // 75 degrees from the west, the grid has 10
    EXPECT_EQ(LatLonInterrupt().At("LonInt(0)").text, "100    00    00    E");
    EXPECT_THAT(machine.boxes.asked, IsEmpty()) << "no box is shown";
}

} // namespace
} // namespace quelmont
