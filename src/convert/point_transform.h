#pragma once

#include "convert/map_line.h"

#include <ogr_spatialref.h>

#include <vector>

namespace quelmont {

/// Turns the points of a line from one reference system into another, x or longitude before y or
/// latitude. The answer says for each point whether it has a place there; one without is unchanged.
std::vector<bool> TransformPoints(OGRCoordinateTransformation& transformation, MapLine& line);

} // namespace quelmont
