#pragma once

#include "mapfiles/packed_file.h"

#include <cstdint>

namespace quelmont {

/// Seconds of arc. A box whose west is above its east reaches across the 180th meridian.
struct PlaceBox {
    std::int32_t south, north, west, east;
};

/// Whether a point in the box could lie on the map. False only
/// if none can, as MapPoint::TestBounds would say of each.
///
/// Reads   ProjNum, the bounds of the map, LonWestSec, and on UTM the constants of the zone.
/// Maps bounded by a circle keep every box, and UTM those near a pole and across the meridian opposite of the
/// central one.
bool BoxMayTouchMap(const PlaceBox& box);

/// The same by the box in a segment's header; one that is wrong about its points is not found out.
inline bool BoxMayTouchMap(const PackedHeader& header) {
    return BoxMayTouchMap(PlaceBox{header.BoxSouth, header.BoxNorth, header.BoxWest, header.BoxEast});
}

} // namespace quelmont
