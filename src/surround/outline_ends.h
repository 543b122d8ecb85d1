#pragma once

#include "graticule/map_outline.h"
#include "surround/label_spots.h"

#include <optional>
#include <vector>

/// Where lines of the grid meet the outline of the map, and where labels can stand along them. All of it
/// projects points and is called while a MapInHand lives.

namespace quelmont {

/// A point as ProjectSelect takes it; nothing when it has no place on the map, by its horizon or its range.
std::optional<PlanePlace> PlaceOnPlane(double lat, double lon);

/// The ends of a parallel, or of a meridian, on the outline of a map bounded by parallels and meridians. A
/// parallel that is a point has one end; a meridian has none at a pole that is a point. cutByEquator: the
/// equator is no outline, since the other hemisphere's lobes lie beyond it.
std::vector<LabelSpot> EndsOfParallel(double lat);
std::vector<LabelSpot> EndsOfMeridian(double lon, bool cutByEquator);

/// The same on the circle that bounds an azimuthal map.
std::vector<LabelSpot> RimEndsOfParallel(double lat);
std::vector<LabelSpot> RimEndsOfMeridian(double lon);

/// Places along a parallel, or a meridian, midway between the lines that cross it, from the middle of the map
/// outward. None where the line is a point.
std::vector<LabelSpot> SpotsAlongParallel(double lat);
std::vector<LabelSpot> SpotsAlongMeridian(double lon);

} // namespace quelmont
