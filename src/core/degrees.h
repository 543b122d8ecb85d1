#pragma once

#include "core/coordinates.h"

#include <cstdint>

namespace quelmont {

/// An angle of whole seconds of arc in degrees: the double nearest to seconds / 3600.
///
/// Without a division, which every point of a map would wait for: of 1/3600 the upper 21 bits, whose product
/// is exact, and the rest. Their sum is rounded once, and no 3600th lies so near to the middle between two
/// doubles that what the rest is short by could turn it the other way.
constexpr double DegreesOf(std::int32_t seconds) {
    constexpr double upper = 0x1.23456p-12;
    constexpr double lower = 0x1.e26af37c048d1p-34;
    const double size = seconds;
    return size * upper + size * lower;
}

/// An angle of radians in degrees.
constexpr double InDegrees(double radians) { return radians / DegToRad; }

} // namespace quelmont
