#pragma once

#include "circles/great_circle_route.h"
#include "core/circle_tables.h"

#include <cstdint>

namespace quelmont {

/// Most rows of a route before it is refined. A walk in whole degrees has 182 at most.
constexpr std::int16_t MostGreatCircleRows = 500;

/// The shorter great circle between two places, on a sphere, as GcCalc makes it of those of the design. A
/// pole has the longitude of the other end. RunTimeError "Invalid procedure call or argument" for an angle
/// that is none, "Division by zero" where the ends lie too close to one meridian.
GreatCircleTable GreatCircleBetween(const RouteEnds& ends);

/// Computes the shorter great circle between two places, on a sphere.
///
/// Reads   GcStartLat, GcStartLon, GcEndLat, GcEndLon (degrees), and GcText for the message box.
/// Writes  GcTable. Its rows lie on whole degrees of longitude, along a meridian of latitude, and at
///         most 240 minutes of arc apart.
/// A pole has the longitude of the other end. At mostRows rows a message box tells that the route ends short
/// of its end. Another failure (an angle that is none: "Invalid procedure call or argument") shows
/// "Error in GcCalc" and leaves no rows.
void GcCalc(std::int16_t mostRows = MostGreatCircleRows);

} // namespace quelmont
