#pragma once

#include "output/area_rings.h"

#include <vector>

/// The edge of the map, as lines in the plane and as the place where the grid ends.

namespace quelmont {

using PlanePlace = PlanePoint;

/// Where a parallel or a meridian of the grid ends on the outline.
struct OutlineMark {
    PlanePlace at;
    PlanePlace outward; ///< across the outline, of length 1
};

/// The true outline of a map.
struct MapOutline {
    /// Each ring is closed: its last point is joined to its first one, which does not come again. It is
    /// walked counter-clockwise. There is one, but for an interrupted map of one hemisphere that does not
    /// reach the equator, which has one for each lobe.
    std::vector<std::vector<PlanePlace>> rings;
    /// Not in the corners of the map, none on a pole that is a point, and none at all of a grid of more than
    /// 2000 lines in a direction.
    std::vector<OutlineMark> marks;
};

/// The outline of the map, through the forward projection: rectangle, sector of a cone, oval of the world,
/// circle of range or horizon, lobes. A chain leaves the true line by less than 2e-5 of the map's larger
/// side.
///
/// Reads   what ProjectSelect and PlotGrid read of the map; on the interrupted projection the whole map, also
/// in
///         the midst of a draw, whose bounds are those of a lobe.
/// Writes nothing. What has no place on the map (the pole of a conformal cone that lies at infinity) is left
/// out. No message box is shown. RunTimeError for a design that no dialog has accepted.
MapOutline OutlineOfMap();

} // namespace quelmont
