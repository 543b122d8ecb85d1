#include "dialogs/bounds/lat_lon_bounds.h"

#include "dialogs/bounds/boundary_checks.h"
#include "dialogs/bounds/boundary_defaults.h"
#include "dialogs/bounds/lat_lon_interrupt.h"
#include "dialogs/bounds/lat_lon_std_par.h"
#include "graticule/calc_graticule.h"
#include "platform/machine.h"
#include "projection/param_select.h"

namespace quelmont {

LatLonBounds::LatLonBounds() : DesignFields("LatLonBounds", "Non-azimuthal Projection Boundaries") {
    Form_Load();
    AddField("LatN", "&Northernmost latitude of map", LatitudeMask, Design.GridText[0]);
    AddField("LatS", "&Southernmost latitude of map", LatitudeMask, Design.GridText[1]);
    AddField("LatGr", "Degrees of &latitude between grid marks", ArcMask, Design.GridText[2]);
    AddField("LonW", "&Westernmost longitude of map", LongitudeMask, Design.GridText[3]);
    AddField("LonE", "&Easternmost longitude of map", LongitudeMask, Design.GridText[4]);
    AddField("LonGr", "Degrees of lon&gitude between grid marks", ArcMask, Design.GridText[5]);
    for (const char* const field : {"LatN", "LatS", "LatGr", "LonW", "LonE", "LonGr"}) {
        CheckWhenLeft(field);
    }
    Add({.name = "HelpLine",
         .kind = ControlKind::Label,
         .text =
             "Move within a line using cursor keys or mouse.  Move between lines with TAB key or mouse."});
    AddOkAndCancel([this] { OK_Click(); });
    SetHelpPage(HelpPageOfBoundaries);
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
    StoreFields();
    CalcGraticule();
    if (!CalculationAllowed()) {
        return;
    }
    Design.DialogCancelled = false;
    if (HasStandardParallels()) {
        LatLonStdPar parallels;
        Machine().forms->Show(parallels);
    } else if (Design.ProjNum == ProjInterruptedMollweide) {
        LatLonInterrupt interruptions;
        Machine().forms->Show(interruptions);
    } else {
        Design.ProjGridSet[static_cast<std::size_t>(Design.ProjNum)] = true;
        Design.BoundsChanged = true;
        ParamSelect();
    }
    if (Design.BoundsChanged) {
        Close();
    }
}

} // namespace quelmont
