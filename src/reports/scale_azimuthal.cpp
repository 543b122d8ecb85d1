#include "core/checked_math.h"
#include "core/map_design.h"
#include "reports/reports_state.h"
#include "reports/scale_error.h"

#include <algorithm>
#include <cmath>

namespace quelmont {

namespace {

/// So near to the antipode of the centre a point is the antipode, as a cosine.
constexpr double AntipodeLimit = 1e-12;
/// A scale along the meridian below this is one of zero: the rim of the orthographic projection.
constexpr double LeastScale = 1e-12;

/// Distance from the centre on the map over its true sine, and how that changes along the meridian.
struct Factor {
    double f = 1.0;
    double g = 0.0;
};

/// cz is the cosine of the distance from the centre, b its derivative by latitude.
Factor EquidistantFactor(double cz, double b) {
    double sz = std::sqrt(1.0 - cz * cz);
    double angle = 2.0 * QuarterPi;
    if (std::fabs(cz) < 1e-08) {
        cz = 0.0;
        sz = 1.0;
    } else {
        angle = std::atan(sz / cz);
        angle += angle < 0.0 ? 4.0 * QuarterPi : 0.0;
    }
    if (sz == 0.0) {
        return {};
    }
    // The last term has no factor b: samples are taken in one direction alone.
    return {angle / sz, Divide(angle * cz, sz * sz * sz) * b + 1.0 / sz};
}

Factor FactorOf(double cz, double b) {
    switch (Design.ProjNum) {
    case ProjGnomonic:
        return {Divide(1.0, cz), Divide(-1.0, cz * cz) * b};
    case ProjStereographic:
        return {Divide(2.0, 1.0 + cz), Divide(-2.0, (1.0 + cz) * (1.0 + cz)) * b};
    case ProjVerticalPerspective: {
        const double away = Design.VpP - cz;
        return {Divide(Design.VpP - 1.0, away), Divide(Design.VpP - 1.0, away * away) * b};
    }
    case ProjAzimuthalEquidistant:
        return EquidistantFactor(cz, b);
    case ProjAzimuthalEqualArea:
        return {Divide(Sqrt2, SquareRoot(1.0 + cz)), Divide(-1.0, Power(1.0 + cz, 1.5) * Sqrt2) * b};
    default:
        return {};
    }
}

} // namespace

ScaleError AzimuthalScale() {
    const double phi = ReportsNow.ScaleErrLat * DegToRad;
    const double c = std::cos(phi);
    const double s = std::sin(phi);
    const double cl = std::cos((ReportsNow.ScaleErrLon - Design.LonMiddle) * DegToRad);
    const double a = Design.CosLatCentral * c + Design.SinLatCentral * s * cl;
    const double b = Design.SinLatCentral * c - Design.CosLatCentral * s * cl;
    double cz = std::clamp(Design.SinLatCentral * s + Design.CosLatCentral * c * cl, -1.0, 1.0);
    if (1.0 + cz < AntipodeLimit) {
        if (Design.ProjNum == ProjAzimuthalEquidistant) {
            return Printed(TrueScale, InfiniteScale, InfiniteScale);
        }
        if (Design.ProjNum == ProjAzimuthalEqualArea) {
            return Printed(ZeroScale, InfiniteScale, InfiniteScale);
        }
        cz = -1.0;
    }
    const Factor factor = FactorOf(cz, b);
    double h =
        std::fabs(factor.f * a + (Design.CosLatCentral * s - Design.SinLatCentral * c * cl) * factor.g);
    if (Design.ProjNum == ProjOrthographic && h < LeastScale) {
        h = 0.0;
    }
    return Printed(h, std::fabs(factor.f * cl));
}

} // namespace quelmont
