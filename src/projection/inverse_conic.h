#pragma once

#include "projection/inverse_select.h"

/// Inverse conic projections: y from LatCentral on the central meridian. Snyder 1987, pp. 98-115.

namespace quelmont {

std::optional<RelativePlace> InverseConic(double x, double y);

} // namespace quelmont
