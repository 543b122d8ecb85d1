#pragma once

#include "dialogs/bounds/bounds_form.h"

#include <string_view>

namespace quelmont {

/// What the two dialogs of the azimuthal projections have in common: centre, grid, and what becomes
/// of them when they are accepted.
///
/// Reads   ProjNum, ProjGridSet, GridText.
/// Writes  the texts of its fields and what CalcGraticule and ParamSelect make of them,
///         StdParNorthText, StdParSouthText, ProjGridSet, BoundsChanged, DialogCancelled.
class AzimuthalBounds : public BoundsForm {
protected:
    explicit AzimuthalBounds(std::string_view className);

    void AddCentreAndGrid();
    /// Stores the fields and runs the calculations; closes when they accept.
    void Accept();
};

/// "Azimuthal Projection Boundaries": centre, grid, and range of the map in degrees of arc.
class LatLonBoundsAz : public AzimuthalBounds {
public:
    LatLonBoundsAz();

private:
    void OK_Click();
};

/// The same for the vertical perspective, with the height of the view point in kilometres in place
/// of the range; statute and nautical miles are only shown.
class LatLonBoundsVp : public AzimuthalBounds {
public:
    LatLonBoundsVp();

private:
    void VpDistanceKM_Change();
};

} // namespace quelmont
