#pragma once

#include "output/area_rings.h"

#include <functional>

namespace quelmont {

/// A part of an area between two level lines: its sides are straight, and one of them may be a point.
struct Trapezoid {
    double low = 0.0, high = 0.0;                                          ///< y; low < high
    double lowLeft = 0.0, lowRight = 0.0, highLeft = 0.0, highRight = 0.0; ///< x
};

/// Hands over what lies inside an odd number of rings as trapezoids that cover it once, for formats that fill
/// nothing larger. Rings may cross and touch themselves and each other.
///
/// About as many as the rings have points. Takes time in proportion to the number of different y times the
/// number of sides that a level line crosses; the coordinates are best whole numbers.
void ForEachTrapezoid(const PlaneRings& rings, const std::function<void(const Trapezoid&)>& take);

} // namespace quelmont
