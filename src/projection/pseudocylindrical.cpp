#include "projection/pseudocylindrical.h"

#include "core/map_design.h"
#include "projection/forward.h"

#include <cmath>

namespace quelmont {

void ForwardHammer() {
    // Snyder 1987, eq. 24-1 and following, with half the longitude difference.
    const double phi = Design.ProjLat * DegToRad;
    const double lam = (Design.ProjLon - Design.LonCentral) * HalfDegToRad;
    const double c = std::cos(phi);
    const double sinPhi = std::sin(phi);
    const double denominator = c * std::cos(lam) + 1.0;
    if (!(denominator > 0.0)) {
        // Without the factor neither coordinate can be computed.
        ReportProjectSelect(denominator == 0.0 ? ErrorDivisionByZero : ErrorInvalidCall);
        return;
    }
    const double d = std::sqrt(2.0 / denominator);
    StoreProjected(((d + d) * c) * std::sin(lam), sinPhi * d);
}

namespace {

/// Rounds after which Newton's rule is given up. From phi it needs 3 rounds at the equator and
/// some 25 next to a pole, where it converges linearly; rounding can keep it from ending there.
constexpr int MollweideRounds = 200;

/// Auxiliary angle theta of the Mollweide projection: 2 theta + sin 2 theta = pi sin phi.
double MollweideTheta(double latitude, double phi) {
    if (std::fabs(latitude) == 90.0 || latitude == 0.0) {
        return phi;
    }
    const double target = std::sin(phi) * Pi;
    double t = phi;
    for (int round = 0; round < MollweideRounds; ++round) {
        const double twice = t + t;
        const double sine = std::sin(twice);
        const double cosine = std::cos(twice);
        const double d = (target - twice - sine) / (cosine + cosine + 2.0);
        t = d + t;
        // A step that is not a number also ends the loop.
        if (!(std::fabs(d) >= 1e-14)) {
            break;
        }
    }
    return t;
}

} // namespace

void ForwardMollweide() {
    // Snyder 1987, eq. 31-1, 31-2, 31-4.
    const double phi = Design.ProjLat * DegToRad;
    const double lam = (Design.ProjLon - Design.LonCentral) * DegToRad;
    const double theta = MollweideTheta(Design.ProjLat, phi);
    if (!std::isfinite(theta)) {
        // Very near a pole the slope of Newton's rule is zero.
        ReportProjectSelect(ErrorDivisionByZero);
        return;
    }
    StoreProjected(((Sqrt2 + Sqrt2) * lam * std::cos(theta)) / Pi + Design.LobeOffsetX,
                   std::sin(theta) * Sqrt2);
}

void ForwardRobinson() {
    // A polynomial in the absolute latitude in degrees that replaces the published table of
    // Robinson 1974 (Snyder 1990): X is the relative length of the parallel, Y its height.
    const double lat = Design.ProjLat;
    const double a = std::fabs(lat);
    const double b = a * a;
    const double c = b * a;
    const double lam = (Design.ProjLon - Design.LonCentral) * DegToRad;
    const double x = 1.0 - a * 0.0007658862163 + b * 6.7797484678e-05 - c * 5.2131392009e-06 +
                     (a * 1.0474391018e-07) * c - (b * 1.066164359e-09) * c + (c * 4.2800356557e-12) * c;
    double y = a * 0.012684924808 - b * 4.8919970056e-05 + c * 2.7603657836e-06 - (a * 6.7236660474e-08) * c +
               (b * 7.3846103164e-10) * c - (c * 3.211233692e-12) * c;
    if (lat < 0.0) {
        y = -y;
    }
    StoreProjected((x * 0.8487) * lam, y * 1.3523);
}

} // namespace quelmont
