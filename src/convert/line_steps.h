#pragma once

#include "convert/map_line.h"

#include <cstdint>
#include <string>

/// What happens to a line between its source and its target.

namespace quelmont {

/// A coordinate in a message, up to six decimals: "10.5", "?" for what is not finite.
std::string NumberWords(double value);

/// Degrees eastward from one longitude of a line to the next, the shorter way round; a step of exactly
/// 360 degrees is a whole parallel and stays.
double LongitudeStep(double from, double to);

/// Brings the points of a line onto the earth: what passes a pole or the 180th meridian by no more than
/// a billionth of a degree, as computed coordinates do, lies on it. BadFeature for a point whose
/// latitude is not -90 to 90, or whose longitude is not -360 to 360.
void CheckOnEarth(MapLine& line);

/// Hands on a line in pieces with longitudes -180 to 180, cut where it crosses the 180th meridian: one
/// piece ends at 180 or -180, the next begins at the other. Between two points it runs the shorter way
/// round; a step of exactly 360 degrees is a whole parallel and stays. Longitudes are -360 to 360.
void SplitAt180(MapLine& line, const LineTaker& take);

/// Degrees. When West is greater than East, the bounds reach across the 180th meridian.
struct LonLatBounds {
    double West = -180.0, South = -90.0, East = 180.0, North = 90.0;
};

/// Hands on what of a line lies inside the bounds, the bounds included, cut at them. Longitudes are
/// -180 to 180.
void CutToBounds(MapLine& line, const LonLatBounds& bounds, const LineTaker& take);

/// Puts points, evenly apart, into segments that span more than so many degrees of longitude. Gives
/// their number. Longitudes are -180 to 180.
std::int64_t ShortenSteps(MapLine& line, double most);

} // namespace quelmont
