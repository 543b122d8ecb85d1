#include "dialogs/bounds/lat_lon_std_par.h"

#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_checks.h"
#include "dialogs/bounds/boundary_defaults.h"

namespace quelmont {

namespace {

/// Column of the hemisphere's letter, from 0.
constexpr std::size_t LetterColumn = 18;

} // namespace

LatLonStdPar::LatLonStdPar() : BoundsForm("LatLonStdPar", "Latitudes of Standard Parallels") {
    Design.DialogCancelled = true;
    ProposeStandardParallels();
    AddField("LatNorthStdPar", "&Northernmost standard parallel", LatitudeMask,
             Design.StdParText[StdParTextNorth]);
    AddField("LatSouthStdPar", "&Southernmost standard parallel", LatitudeMask,
             Design.StdParText[StdParTextSouth]);
    CheckWhenLeft("LatNorthStdPar");
    if (HasOneStandardParallel()) {
        Edit("LatSouthStdPar").enabled = false;
        On("LatNorthStdPar", ControlEvent::Change, [this] { LatNorthStdPar_Change(); });
        LatNorthStdPar_Change();
    } else {
        CheckWhenLeft("LatSouthStdPar");
    }
    Add({.name = "LatNorth",
         .kind = ControlKind::Label,
         .text = Design.GridText[GridTextNorth],
         .caption = "Northernmost latitude of map"});
    Add({.name = "LatSouth",
         .kind = ControlKind::Label,
         .text = Design.GridText[GridTextSouth],
         .caption = "Southernmost latitude of map"});
    AddOkAndCancel([this] { OK_Click(); });
}

void LatLonStdPar::LatNorthStdPar_Change() {
    std::string mirrored = TextOf("LatNorthStdPar");
    mirrored[LetterColumn] = 'S';
    SetText("LatSouthStdPar", mirrored);
}

void LatLonStdPar::OK_Click() {
    if (!Allowed(AcceptLatLonStdPar(TextOf("LatNorthStdPar"), TextOf("LatSouthStdPar")))) {
        return;
    }
    StoreStandardParallels(TextOf("LatNorthStdPar"), TextOf("LatSouthStdPar"));
    FinishAcceptance();
    Design.BoundsChanged = true;
    CloseAccepted();
}

} // namespace quelmont
