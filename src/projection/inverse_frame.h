#pragma once

#include "core/degrees.h"
#include "core/map_design.h"
#include "projection/inverse_select.h"

#include <algorithm>
#include <cmath>
#include <optional>

/// What the inverse formulas behind InverseSelect share. There is a family per file, as of the forward ones;
/// each takes x and y in earth radii and reads the constants of the design. The angles are turned into
/// degrees with the same DegToRad with which the forward turns them into radians.

namespace quelmont {

/// How far outside an outline a point may lie and be taken as on it, earth radii: what the roundings of a
/// forward projection can do, and half of what may be lost on the way there and back.
constexpr double OutlineSlack = 5e-13;

/// The same at a coordinate of that size, which has fewer digits after its point; at most a few metres.
inline double SlackAt(double coordinate) {
    return std::min(OutlineSlack + 1e-15 * std::fabs(coordinate), 1e-6);
}

/// A distance along a parallel or a meridian in degrees.
///
/// distance: earth radii; unitsPerDegree: its scale, at least 0; limit: the length of the line to either
/// side, degrees. Nothing beyond the ends by more than the slack. A line as short as the slack is a point, a
/// pole, and counts as 0 degrees.
inline std::optional<double> DegreesWithin(double distance, double unitsPerDegree, double limit,
                                           double slack) {
    const double length = limit * unitsPerDegree;
    if (!(std::fabs(distance) <= length + slack)) {
        return std::nullopt;
    }
    return length <= slack ? 0.0 : std::clamp(distance / unitsPerDegree, -limit, limit);
}

inline std::optional<double> DegreesWithin(double distance, double unitsPerDegree, double limit) {
    return DegreesWithin(distance, unitsPerDegree, limit, SlackAt(distance));
}

/// Latitude in degrees from radians; an angle beyond a pole by its rounding is the pole.
inline double LatitudeOf(double radians) { return std::clamp(InDegrees(radians), -90.0, 90.0); }

/// Latitude in degrees from its sine. Nothing beyond 1 by more than the slack, or by more than 1e-6.
inline std::optional<double> LatitudeOfSine(double sine, double slack) {
    if (!(std::fabs(sine) <= 1.0 + std::min(slack, 1e-6))) {
        return std::nullopt;
    }
    return LatitudeOf(std::asin(std::clamp(sine, -1.0, 1.0)));
}

/// The point so many degrees east of the central meridian, where there is such a point.
inline std::optional<RelativePlace> FromCentral(std::optional<double> lat, std::optional<double> east) {
    if (!lat || !east) {
        return std::nullopt;
    }
    return RelativePlace{*lat, Design.LonCentral + *east};
}

} // namespace quelmont
