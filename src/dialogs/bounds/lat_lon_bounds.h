#pragma once

#include "dialogs/bounds/bounds_form.h"

namespace quelmont {

/// "Non-azimuthal Projection Boundaries": the bounds and the grid of a map bounded by parallels and
/// meridians. Where the projection has standard parallels or interruptions, OK goes on to their
/// dialog, and closes when that one was accepted.
///
/// Reads   ProjNum, ProjGridSet, GridText.
/// Writes  GridText 0 to 5 and what CalcGraticule and ParamSelect make of them, ProjGridSet,
///         BoundsChanged, DialogCancelled.
class LatLonBounds : public BoundsForm {
public:
    LatLonBounds();

private:
    void Form_Load();
    void OK_GotFocus();
    void OK_Click();
};

} // namespace quelmont
