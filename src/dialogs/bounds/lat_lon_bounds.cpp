#include "dialogs/bounds/lat_lon_bounds.h"

#include "dialogs/bounds/accept_bounds.h"
#include "dialogs/bounds/boundary_checks.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "dialogs/bounds/lat_lon_interrupt.h"
#include "dialogs/bounds/lat_lon_std_par.h"

namespace quelmont {

LatLonBounds::LatLonBounds() : BoundsForm("LatLonBounds", "Non-azimuthal Projection Boundaries") {
    Form_Load();
    AddField("LatN", "&Northernmost latitude of map", LatitudeMask, Design.GridText[GridTextNorth]);
    AddField("LatS", "&Southernmost latitude of map", LatitudeMask, Design.GridText[GridTextSouth]);
    AddField("LatGr", "Degrees of &latitude between grid marks", ArcMask,
             Design.GridText[GridTextLatSpacing]);
    AddField("LonW", "&Westernmost longitude of map", LongitudeMask, Design.GridText[GridTextWest]);
    AddField("LonE", "&Easternmost longitude of map", LongitudeMask, Design.GridText[GridTextEast]);
    AddField("LonGr", "Degrees of lon&gitude between grid marks", ArcMask,
             Design.GridText[GridTextLonSpacing]);
    for (const char* const field : {"LatN", "LatS", "LatGr", "LonW", "LonE", "LonGr"}) {
        CheckWhenLeft(field);
    }
    Add({.name = "HelpLine",
         .kind = ControlKind::Label,
         .text =
             "Move within a line using cursor keys or mouse.  Move between lines with TAB key or mouse."});
    AddOkAndCancel([this] { OK_Click(); });
    On("OK", ControlEvent::GotFocus, [this] { OK_GotFocus(); });
}

void LatLonBounds::Form_Load() {
    Design.BoundsChanged = false;
    Design.DialogCancelled = true;
    ProposeBounds();
}

void LatLonBounds::OK_GotFocus() {
    if (Design.BoundsChanged) {
        Close();
    }
}

void LatLonBounds::OK_Click() {
    if (!Allowed(AcceptLatLonBounds(TextOf("LatN"), TextOf("LatS")))) {
        return;
    }
    const DesignBounds beforeOk = Design;
    StoreFields();
    if (!BoundsCalculated()) {
        return;
    }
    Design.DialogCancelled = false;
    if (HasStandardParallels()) {
        LatLonStdPar parallels;
        ShowFollowUp(parallels, beforeOk);
    } else if (Design.ProjNum == ProjInterruptedMollweide) {
        LatLonInterrupt interruptions;
        ShowFollowUp(interruptions, beforeOk);
    } else {
        FinishAcceptance();
        Design.BoundsChanged = true;
    }
    if (Design.BoundsChanged) {
        Close();
    }
}

} // namespace quelmont
