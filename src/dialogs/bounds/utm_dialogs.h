#pragma once

#include "dialogs/bounds/bounds_form.h"

namespace quelmont {

/// The three dialogs of the UTM projection. Each OK closes its dialog and opens the next one; Cancel
/// anywhere sets DialogCancelled and ends the chain.

/// "Select UTM Spheroid".
///
/// Writes  SpheroidName, DialogCancelled.
class UtmSpheroid : public BoundsForm {
public:
    UtmSpheroid();

private:
    void OK_Click();
};

/// "Select UTM Parameters": central longitude, origin, false coordinates, scale.
///
/// Writes  UtmText(0) to (4) and what CalcUtmZone makes of them, DialogCancelled.
class UtmParameters : public BoundsForm {
public:
    UtmParameters();

private:
    void OK_Click();
};

/// "UTM Projection Boundaries": bounds and grid in metres.
///
/// Writes  UtmText(5) to (10) and what CalcUtmGrid and ParamSelect make of them, BoundsChanged,
///         DialogCancelled.
class UtmCoords : public BoundsForm {
public:
    UtmCoords();

private:
    void OK_Click();
};

} // namespace quelmont
