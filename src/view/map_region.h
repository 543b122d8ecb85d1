#pragma once

#include "projection/inverse_utm.h"

#include <cstdint>
#include <string>

namespace quelmont {

/// A part of the globe for which a projection is chosen.
struct MapRegion {
    // The box that holds it, degrees.
    double south = -90.0, north = 90.0;
    double west = -180.0; ///< true longitude
    double span = 360.0;  ///< from there eastward, up to 360
    // The circle that holds it.
    GlobePlace centre;
    double radius = 180.0; ///< degrees of arc
    bool isRound = false;  ///< it is all of that circle, and not all of the box
};

/// What a region is to a projection: where it lies, how large it is and which way it reaches.
enum class RegionKind : std::uint8_t {
    World,      ///< more than a hemisphere
    Hemisphere, ///< about half of the globe
    Pole,       ///< about a pole
    Equator,    ///< along the equator
    Wide,       ///< elsewhere, wider from west to east than high
    Compact,    ///< elsewhere, about as wide as high, or higher
    Zone,       ///< no wider than a zone of UTM
};

/// The whole globe about the middle of the design's region, from the western boundary that this has if it
/// goes round the axis. RunTimeError as RegionOfDesign.
MapRegion WholeWorld();

/// The region that the design has bounds for, whichever projection these were accepted for. Its circle is
/// about a place of whole degrees, of whole minutes in small regions.
/// Reads   BoundsProjNum, GridText, RangeSec; on UTM the bounds and the zone. RunTimeError "Overflow" for
/// texts that no dialog accepts.
MapRegion RegionOfDesign();

/// Whether it is the whole globe between its poles.
bool IsWholeWorld(const MapRegion& region);

RegionKind KindOf(const MapRegion& region);

/// The region in words for people, UTF-8: "From 35° N to 60° N, from 10° W to 30° E".
std::string RegionText(const MapRegion& region);

/// What divides the degrees of bounds of so many degrees without being too fine: seconds.
std::int64_t RegionUnit(double degrees);

} // namespace quelmont
