#pragma once

#include "output/area_rings.h"
#include "output/logical_point.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace quelmont {

/// A part of an area in logical units: the points of its outlines one behind the other, and the number of
/// each.
struct AreaPiece {
    std::vector<LogicalPoint> points;
    std::vector<std::int32_t> counts;
};

/// Hands an area over in pieces of at most so many points, at least 100: halves of it, halves of these, cut
/// straight. Points are thinned to logical units.
/// Reads   the fit of ScaleScreen in logical units. RunTimeError "Overflow" where a point does not fit 16
/// bits.
void ForEachPiece(const PlaneRings& rings, std::size_t mostPoints,
                  const std::function<void(const AreaPiece&)>& take);

} // namespace quelmont
