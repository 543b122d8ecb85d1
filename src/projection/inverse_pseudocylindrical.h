#pragma once

#include "projection/inverse_select.h"

/// Inverse pseudocylindrical and oval projections: x from the central meridian.

namespace quelmont {

std::optional<RelativePlace> InverseHammer(double x, double y);
std::optional<RelativePlace> InverseRobinson(double x, double y);

/// Degrees, east of a central meridian.
struct CentralPlace {
    double lat = 0.0;
    double east = 0.0;
};

/// The inverse for a map or a lobe of one.
///
/// x: from its central meridian. half: how far it reaches to either side, degrees of longitude; nothing
/// beyond. Reads nothing of the design.
std::optional<CentralPlace> InverseMollweide(double x, double y, double half);

} // namespace quelmont
