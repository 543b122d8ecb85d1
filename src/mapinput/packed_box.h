#pragma once

#include "mapfiles/packed_file.h"

namespace quelmont {

/// Whether a point of a segment could lie on the map, by the box in the segment's header. False only
/// if none can, as MapPoint::TestBounds would say of each; a box that is wrong about its points is not
/// found out.
///
/// Reads   ProjNum, the bounds of the map, LonWestSec, and on UTM the constants of the zone.
/// A box whose west is above its east reaches across the 180th meridian. Maps bounded by a circle
/// keep every segment, and UTM those near a pole and across the meridian opposite of the central one.
bool BoxMayTouchMap(const PackedHeader& header);

} // namespace quelmont
