#pragma once

#include "core/map_design.h"
#include "projection/inverse_utm.h"

namespace quelmont {

/// The centre that the texts of an azimuthal map tell, degrees.
GlobePlace CentreOf(const DesignBounds& bounds);

/// Makes each spacing of an azimuthal map's grid a round one where a move from the bounds before leaves
/// hardly a line of it in sight, or hardly anything but lines; a grid that was so before stays. Reads the
/// texts of the centre and the accepted range, writes the texts of the spacings.
void FitSpacings(const DesignBounds& before);

} // namespace quelmont
