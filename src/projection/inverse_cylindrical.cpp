#include "projection/inverse_cylindrical.h"

#include "core/map_design.h"
#include "projection/inverse_frame.h"

#include <cmath>

namespace quelmont {

namespace {

/// Degrees east of the central meridian, of x from the western boundary.
std::optional<double> EastOfCentral(double x, double unitsPerDegree) {
    const double west = (Design.LonCentral - Design.LonZero) * unitsPerDegree;
    return DegreesWithin(x - west, unitsPerDegree, 180.0, SlackAt(x) + 1e-15 * std::fabs(west));
}

} // namespace

std::optional<RelativePlace> InverseMercator(double x, double y) {
    // Snyder 1987, eq. 7-4.
    const double lat = (std::atan(std::exp(y)) - QuarterPi) / HalfDegToRad;
    if (!(std::fabs(lat) < 90.0)) {
        return std::nullopt;
    }
    return FromCentral(lat, EastOfCentral(x, DegToRad));
}

std::optional<RelativePlace> InverseEquirectangular(double x, double y) {
    if (!(Design.CosStdPar > 0.0)) {
        return std::nullopt;
    }
    return FromCentral(DegreesWithin(y, DegToRad, 90.0), EastOfCentral(x, DegToRad * Design.CosStdPar));
}

std::optional<RelativePlace> InverseCylindricalEqualArea(double x, double y) {
    if (!(Design.CosStdPar > 0.0)) {
        return std::nullopt;
    }
    // Snyder 1987, eq. 10-6 for a latitude of true scale.
    return FromCentral(LatitudeOfSine(y * Design.CosStdPar, SlackAt(y) * Design.CosStdPar),
                       EastOfCentral(x, DegToRad * Design.CosStdPar));
}

} // namespace quelmont
