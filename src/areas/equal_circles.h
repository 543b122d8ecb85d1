#pragma once

#include "areas/ring.h"
#include "core/map_extras.h"
#include "output/area_rings.h"
#include "projection/inverse_utm.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace quelmont {

// Circles on the globe that show what a map makes of equal figures, degrees of arc. Their lines go through
// whole seconds: smaller ones would have corners.
constexpr double LeastCircleRadius = 0.01;
constexpr double LargestCircleRadius = 45.0;
constexpr double LeastCircleSpacing = 0.01;
constexpr double LargestCircleSpacing = 90.0;
constexpr bool IsCircleRadius(double radius) {
    return radius >= LeastCircleRadius && radius <= LargestCircleRadius;
}
constexpr bool IsCircleSpacing(double spacing) {
    return spacing >= LeastCircleSpacing && spacing <= LargestCircleSpacing;
}

/// More circles than that would not be told apart; a draw then doubles their spacing until there are no more.
constexpr std::size_t MostEqualCircles = 2000;

/// A circle about a place on a sphere, as a closed line. Nothing for one that is too small or too large to be
/// one.
std::optional<Ring> EqualCircle(const GlobePlace& middle, double radius);

/// The images of the circles of a choice that are on the map, each cut where the map is: one entry for each
/// circle, or for each lobe that has a part of it. Their middles lie on the parallels and meridians that are
/// multiples of the spacing; one lies on each pole.
///
/// Reads   the bounds and the projection. Writes  the point cell. RunTimeError where a place of a circle has
/// none on the map.
std::vector<PlaneRings> ImagesOfCircles(const DistortionChoice& choice);

/// How many circles of a choice lie on the map or about its edges; up to one more than MostEqualCircles.
/// Nothing without a map. Reads   as ImagesOfCircles. Writes nothing, shows no message box, throws nothing.
std::optional<std::size_t> CountCircles(const DistortionChoice& choice);

} // namespace quelmont
