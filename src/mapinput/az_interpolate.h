#pragma once

#include <cstdint>

namespace quelmont {

/// Which way a segment crosses the circle of a map.
enum class LineAtCircle {
    Leaves, ///< the current point is the one outside
    Enters, ///< the previous one is
};

/// Finds where the segment between two neighbouring points, straight in latitude and longitude,
/// crosses the circle that bounds an azimuthal map. One point lies inside, one outside; one that lies
/// on the circle itself may be either.
///
/// Reads   PointLatSecPrev, PointLonSecPrev (from), PointLatSec, PointLonSec (to), RangeSec,
///         LonCentral, LatCentralRad, CosLatCentral.
/// Gives   the crossing in whole seconds, up to half a second from the circle; 0, 0 for two equal
///         points. Segments more than 324 degrees of longitude long run the short way, across the
///         seam.
/// Newton's method on the haversine of the distance less that of the range, at most 20 steps, and
/// bisection where its last value is no number or does not lie between the points.
/// RunTimeError "Overflow" when even that gives none.
void AzInterpolate(std::int32_t& lat, std::int32_t& lon, LineAtCircle way);

} // namespace quelmont
