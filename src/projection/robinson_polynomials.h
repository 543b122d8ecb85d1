#pragma once

#include "projection/pseudocylindrical.h"

namespace quelmont {

/// The polynomials of the Robinson projection in the absolute latitude in degrees, for numbers or for numbers
/// with slopes. The terms are added from left to right.

/// Length of the parallel, relative to the equator.
template <typename Number>
Number RobinsonLength(Number a) {
    const auto& l = RobinsonLengths;
    const Number b = a * a;
    const Number c = b * a;
    return l[0] + a * l[1] + b * l[2] + c * l[3] + (a * l[4]) * c + (b * l[5]) * c + (c * l[6]) * c;
}

/// Height of the parallel above the equator, relative to that of the pole. It grows all the way, at the pole
/// by 0.0034 in a degree.
template <typename Number>
Number RobinsonDistance(Number a) {
    const auto& h = RobinsonHeights;
    const Number b = a * a;
    const Number c = b * a;
    return a * h[1] + b * h[2] + c * h[3] + (a * h[4]) * c + (b * h[5]) * c + (c * h[6]) * c;
}

} // namespace quelmont
