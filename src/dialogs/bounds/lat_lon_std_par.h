#pragma once

#include "dialogs/bounds/bounds_form.h"

namespace quelmont {

/// "Latitudes of Standard Parallels": two on the cones; on the cylinders one, measured from the
/// equator, whose mirror image is shown in the south.
///
/// Proposes parallels when the map's bounds were never accepted, and on the cones when a stored one
/// does not lie inside the bounds.
///
/// Reads   ProjNum, ProjName, ProjGridSet, GridText, LatNorth, LatSouth, StdParText.
/// Writes  StdParText, StdParNorth, StdParSouth, StdParNorthText, StdParSouthText and what
///         ParamSelect makes of them, ProjGridSet, BoundsChanged, DialogCancelled.
class LatLonStdPar : public BoundsForm {
public:
    LatLonStdPar();

private:
    void LatNorthStdPar_Change();
    void OK_Click();
};

} // namespace quelmont
