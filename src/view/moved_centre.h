#pragma once

#include "projection/inverse_utm.h"

namespace quelmont {

/// Where a place lies, seen from another one: degrees of arc.
struct PolarPlace {
    double distance = 0.0; ///< along the great circle, 0 to 180
    double azimuth = 0.0;  ///< of the way there, clockwise from north, -180 to 180
};

/// Distance and azimuth of a place from a centre.
PolarPlace SeenFrom(const GlobePlace& centre, const GlobePlace& place);

/// The centre, with north upward, from which a place is seen like that. Of the two that there may be the one
/// whose latitude is nearer to a given one; where there is none, the one from which it is seen as nearly so
/// as can be. (The spherical triangle of pole, centre and place, of which two sides and the angle at the
/// centre are known.)
GlobePlace CentreThatSees(const GlobePlace& place, const PolarPlace& seen, double nearLatitude);

} // namespace quelmont
