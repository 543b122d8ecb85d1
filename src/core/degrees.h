#pragma once

#include "core/coordinates.h"

#include <cstdint>

namespace quelmont {

/// An angle of whole seconds of arc in degrees.
constexpr double DegreesOf(std::int32_t seconds) { return static_cast<double>(seconds) / SecPerDegree; }

/// An angle of radians in degrees.
constexpr double InDegrees(double radians) { return radians / DegToRad; }

} // namespace quelmont
