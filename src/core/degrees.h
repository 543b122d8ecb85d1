#pragma once

#include "core/coordinates.h"

#include <cstdint>

namespace quelmont {

/// An angle of whole seconds of arc in degrees: the double nearest to seconds / 3600.
///
/// Without a division, as every point of a map comes here: 1/3600 is split into its upper 21 bits, whose
/// product is exact, and the rest. Their sum is rounded once, and no multiple of 1/3600 lies so near to the
/// middle between two doubles that the error of the rest could change the rounding.
constexpr double DegreesOf(std::int32_t seconds) {
    constexpr double upper = 0x1.23456p-12;
    constexpr double lower = 0x1.e26af37c048d1p-34;
    const double size = seconds;
    return size * upper + size * lower;
}

/// An angle of radians in degrees.
constexpr double InDegrees(double radians) { return radians / DegToRad; }

} // namespace quelmont
