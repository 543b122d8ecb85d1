#pragma once

#include "projection/inverse_select.h"

/// Inverse azimuthal projections: x and y from the centre of the map. Snyder 1987, pp. 141-202.

namespace quelmont {

std::optional<RelativePlace> InverseAzimuthal(double x, double y);

} // namespace quelmont
