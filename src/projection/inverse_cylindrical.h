#pragma once

#include "projection/inverse_select.h"

/// Inverse cylindrical projections: x from the western boundary. Snyder 1987, pp. 38-47, 90-91, 76-85.

namespace quelmont {

/// Nothing so far north or south that the latitude is a pole in the digits of a double.
std::optional<RelativePlace> InverseMercator(double x, double y);
std::optional<RelativePlace> InverseEquirectangular(double x, double y);
std::optional<RelativePlace> InverseCylindricalEqualArea(double x, double y);

} // namespace quelmont
