#pragma once

namespace quelmont {

/// Most circles that the dialog and the command line offer.
constexpr int MostSmallCircles = 80;

/// Computes concentric small circles about a place, on a sphere: a point for each degree of bearing, north
/// to north, innermost circle first. Where a circle passes close to a pole, points between two neighbours
/// follow their straight line in latitude and longitude, less than 20 degrees of longitude apart.
///
/// Reads   ScCenterLat, ScCenterLon, ScRadiusDeg (of the outer circle, up to 180), degrees;
///         ScSymbolCount.
/// Writes  ScTable.
/// A failure (an angle that is none, no circle: "Invalid procedure call or argument"; more points than
/// ScRingEnd can count: "Overflow") shows "Error in ScCalc" and leaves no points.
void ScCalc();

} // namespace quelmont
