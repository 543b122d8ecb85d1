#include "graticule/grid_density.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "projection/projection_table.h"

#include <cmath>

namespace quelmont {

namespace {

/// Curved lines need a few segments in all, however wide the grid; maps of less than five seconds
/// do not.
constexpr double SmallestSpan = 0.0014;

/// From so many divisions on, each has the fewest segments.
constexpr std::int32_t ManyDivisions = 6;

std::int16_t Curved(double span, std::int32_t divisions, std::int32_t segments, std::int16_t fewest) {
    if (std::fabs(span) > SmallestSpan && divisions < ManyDivisions) {
        return RoundToInt16(Divide(segments, divisions));
    }
    return fewest;
}

std::int16_t Azimuthal(std::int32_t spacing) {
    if (spacing == 0) {
        throw RunTimeError(ErrorDivisionByZero);
    }
    std::int32_t marks = Design.RangeSec / spacing + 1;
    if (PropertiesOf(Design.ProjNum).wholeGlobe && Design.RangeSec == SecPerHalfCircle && marks > 1) {
        marks -= 1;
    }
    const std::int16_t points = RoundToInt16(Divide(100.0, marks));
    return points == 0 ? std::int16_t{1} : points;
}

double LatSpan() { return Design.LatNorth - Design.LatSouth; }
double LonWidth() { return Design.LonSpan - Design.LonZero; }

} // namespace

std::int16_t LatPointsPerMark() {
    switch (Design.ProjNum) {
    case ProjHammer:
    case ProjRobinson:
        return Curved(LatSpan(), Design.LatGridCount, 24, 4);
    case ProjMollweide:
    case ProjInterruptedMollweide:
        return Curved(LatSpan(), Design.LatGridCount, 48, 8);
    default:
        return IsAzimuthal(Design.ProjNum) ? Azimuthal(Design.LatGridSec) : std::int16_t{1};
    }
}

std::int16_t LonPointsPerMark() {
    if (IsConic(Design.ProjNum)) {
        return Design.LonGridCount < 12 ? RoundToInt16(Divide(48.0, Design.LonGridCount)) : std::int16_t{4};
    }
    if (Design.ProjNum == ProjHammer) {
        return Curved(LonWidth(), Design.LonGridCount, 24, 4);
    }
    return IsAzimuthal(Design.ProjNum) ? Azimuthal(Design.LonGridSec) : std::int16_t{1};
}

} // namespace quelmont
