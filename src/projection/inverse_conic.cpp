#include "projection/inverse_conic.h"

#include "core/checked_math.h"
#include "core/map_design.h"
#include "projection/inverse_frame.h"

#include <cmath>

namespace quelmont {

namespace {

/// Latitude of the parallel of a radius, degrees; nothing beyond a pole. rho: earth radii, with the sign of
/// the cone constant.
std::optional<double> ConicLatitude(double rho) {
    const double n = Design.ConeConstant;
    switch (Design.ProjNum) {
    case ProjEquidistantConic:
        return DegreesWithin(Design.ConicG * DegToRad - rho, DegToRad, 90.0, SlackAt(rho)); // eq. 16-7
    case ProjAlbers: {
        // Snyder 1987, eq. 14-8. The slack of the sine is that of the radius times its slope, and a rounding.
        const double scaled = n * rho;
        return LatitudeOfSine((Design.ConicC - scaled * scaled) / (n + n),
                              std::fabs(scaled) * SlackAt(rho) + 4e-16);
    }
    default:
        break;
    }
    // Eq. 15-5, the tangent; infinite at the apex of a northern cone, 0 at that of a southern one.
    const double tangent = std::pow(Design.ConicF / rho, 1.0 / n);
    const double lat = (std::atan(tangent) - QuarterPi) / HalfDegToRad;
    if (std::fabs(lat) < 90.0) {
        return lat;
    }
    // The pole at the apex is a point of the map, the other one lies at infinity.
    return Sign(lat) == Sign(n) ? std::optional(std::copysign(90.0, lat)) : std::nullopt;
}

} // namespace

std::optional<RelativePlace> InverseConic(double x, double y) {
    const double n = Design.ConeConstant;
    if (n == 0.0) {
        return std::nullopt; // all meridians are one
    }
    // Snyder 1987, eq. 14-10, 14-11: on a southern cone radius and angle have the other sign.
    const double sign = Sign(n);
    const double up = sign * (Design.ConicRho0 - y);
    const double radius = std::hypot(x, up);
    const double around = std::atan2(sign * x, up) * radius;
    return FromCentral(
        ConicLatitude(sign * radius),
        DegreesWithin(sign * around, std::fabs(n) * DegToRad * radius, 180.0, SlackAt(radius)));
}

} // namespace quelmont
