#pragma once

#include "core/circle_tables.h"

#include <cstddef>
#include <vector>

/// The walks along a great circle, one for each way in which it can run. Angles in degrees, distances in
/// minutes of arc.

namespace quelmont {

/// Angles closer than this are the same.
constexpr double SameAngle = 1e-05;

/// Start and end, south and west negative.
struct RouteEnds {
    double startLat = 0.0, startLon = 0.0, endLat = 0.0, endLon = 0.0;
};

/// The rows of a walk, up to a limit.
class RouteRows {
public:
    explicit RouteRows(std::size_t most_) : most(most_) {}

    /// Stores a row. False when the walk has to stop: it was the last one, or there is room for no more.
    bool Store(const GreatCirclePoint& row, bool last);

    std::vector<GreatCirclePoint> rows;
    bool cut = false; ///< the walk stopped short of its end

private:
    std::size_t most;
};

/// Both ends on the equator.
void WalkEquator(const RouteEnds& ends, RouteRows& walk);

/// Both ends on one meridian, or on two that make a circle: then the way leads over the nearer pole, which
/// is one row, with the longitude and course of what follows.
void WalkMeridian(const RouteEnds& ends, RouteRows& walk);

/// Any other two places. The rows run eastward, whichever of them is the start. Gives whether the rows run
/// from the end to the start.
///
/// RunTimeError "Division by zero" where the ends lie too close to one meridian.
bool WalkGreatCircle(const RouteEnds& ends, RouteRows& walk);

} // namespace quelmont
