#pragma once

#include "convert/map_line.h"

#include <ogr_spatialref.h>

#include <cstdint>
#include <optional>

namespace quelmont {

/// Turns a line that is straight between its points in a projected system into longitude and latitude
/// in degrees, where it is not: points are put into a segment wherever it would lie more than a tenth of
/// a second of arc (three metres) off. One segment gets 4095 at most; long lines get fewer, so that what
/// is put in stays below four million points or at three to a segment. At a pole the line gets the
/// longitudes of both its sides.
///
/// Adds to added the number of points put in. Gives the first point of the line that has no place, in
/// the projected system; the line is of no use then.
std::optional<LonLat> TurnProjectedLine(OGRCoordinateTransformation& toDegrees, MapLine& line,
                                        std::int64_t& added);

} // namespace quelmont
