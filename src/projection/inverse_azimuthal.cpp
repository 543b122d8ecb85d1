#include "projection/inverse_azimuthal.h"

#include "core/map_design.h"
#include "projection/azimuthal.h"
#include "projection/inverse_frame.h"
#include "projection/projection_table.h"
#include "projection/sine_cosine.h"

#include <algorithm>
#include <cmath>

namespace quelmont {

namespace {

/// What the roundings of a point's degrees and of the forward can do to the cosine of its distance.
constexpr double CosineSlack = 4e-15;

/// Snyder 1987, eq. 23-4, for a distance in the plane of r times the height of the view point; q is 0 on the
/// horizon.
std::optional<SineCosine> PerspectiveDistance(double rho) {
    const double height = Design.VpP - 1.0;
    if (!(height > 0.0)) {
        return std::nullopt;
    }
    const double rim = std::sqrt(height / (Design.VpP + 1.0));
    if (!(rho <= rim + OutlineSlack)) {
        return std::nullopt;
    }
    const double inside = std::min(rho / rim, 1.0);
    const double q = std::sqrt((1.0 - inside) * (1.0 + inside));
    const double r = inside * rim / height;
    const double d = 1.0 + r * r;
    return SineCosine{r * (Design.VpP - q) / d, (Design.VpP * r * r + q) / d};
}

/// Sine and cosine of the distance from the centre on the globe, of the distance in the plane. Snyder 1987,
/// eq. 22-4, 21-15, 20-19, 23-4, 25-15, 24-16, without the detour over the angle.
std::optional<SineCosine> DistanceOf(double rho) {
    switch (Design.ProjNum) {
    case ProjGnomonic: {
        // Further out the forward cannot tell a point from the horizon.
        constexpr double furthest = 1e12;
        const double secant = std::hypot(1.0, rho);
        return rho < furthest ? std::optional<SineCosine>({rho / secant, 1.0 / secant}) : std::nullopt;
    }
    case ProjStereographic: {
        const double square = rho * rho / 4.0;
        return SineCosine{rho / (1.0 + square), (1.0 - square) / (1.0 + square)};
    }
    case ProjOrthographic: {
        const double sine = std::min(rho, 1.0);
        return rho <= 1.0 + OutlineSlack
                   ? std::optional<SineCosine>({sine, std::sqrt((1.0 - sine) * (1.0 + sine))})
                   : std::nullopt;
    }
    case ProjVerticalPerspective:
        return PerspectiveDistance(rho);
    case ProjAzimuthalEquidistant:
        return rho <= Pi ? std::optional(SineCosineOf(rho)) : std::nullopt;
    default: {
        const double half = rho / 2.0;
        const double square = (1.0 - half) * (1.0 + half);
        return half <= 1.0 ? std::optional<SineCosine>({rho * std::sqrt(square), 1.0 - rho * half})
                           : std::nullopt;
    }
    }
}

/// Nothing for a distance that the forward counts as beyond its horizon. On a horizon that belongs to the map
/// a cosine that is too small by a rounding is set right: the scale is 0 there, so that the place is the
/// same.
std::optional<SineCosine> Visible(std::optional<SineCosine> distance) {
    if (!distance) {
        return std::nullopt;
    }
    if (PropertiesOf(Design.ProjNum).antipode) {
        return distance->cosine > AntipodeCosine + CosineSlack ? distance : std::nullopt;
    }
    const double horizon = Design.HorizonCos[static_cast<std::size_t>(Design.ProjNum - ProjGnomonic)];
    return SineCosine{distance->sine, std::max(distance->cosine, horizon + CosineSlack)};
}

} // namespace

std::optional<RelativePlace> InverseAzimuthal(double x, double y) {
    const double rho = std::hypot(x, y);
    const auto distance = Visible(DistanceOf(rho));
    if (!distance) {
        return std::nullopt;
    }
    // The direction of the place from the earth's centre, turned from the centre of the map to the pole:
    // Snyder 1987, eq. 20-14, 20-15, in a form that keeps all digits near the poles.
    const double east = rho == 0.0 ? 0.0 : distance->sine * (x / rho);
    const double north = rho == 0.0 ? 0.0 : distance->sine * (y / rho);
    const double outward = distance->cosine * Design.CosLatCentral - north * Design.SinLatCentral;
    const double up = distance->cosine * Design.SinLatCentral + north * Design.CosLatCentral;
    return FromCentral(LatitudeOf(std::atan2(up, std::hypot(outward, east))),
                       std::clamp(InDegrees(std::atan2(east, outward)), -180.0, 180.0));
}

} // namespace quelmont
