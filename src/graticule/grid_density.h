#pragma once

#include <cstdint>

namespace quelmont {

/// Segments plotted per grid spacing along a meridian and along a parallel, 1 or more, by projection.
std::int16_t LatPointsPerMark();
std::int16_t LonPointsPerMark();

} // namespace quelmont
