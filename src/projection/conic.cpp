#include "projection/conic.h"

#include "core/map_design.h"
#include "projection/forward.h"
#include "projection/sine_cosine.h"
#include "projection/whole_minutes.h"

#include <cmath>

namespace quelmont {

namespace {

/// Radius of the point's parallel, earth radii. Sets ProjOffMap for the pole at infinity of the
/// conformal conic. RunTimeError where the formula has no value.
double ConicRho() {
    const double lat = Design.ProjLat;
    const double n = Design.ConeConstant;
    switch (Design.ProjNum) {
    case ProjEquidistantConic:
        return (Design.ConicG - lat) * DegToRad; // Snyder 1987, eq. 16-1
    case ProjAlbers:
        return Divide(SquareRoot(Design.ConicC - (n + n) * SineCosineOfLatitude(lat).sine), n); // eq. 14-3
    default:
        break;
    }
    if (std::fabs(lat) == 90.0) {
        if (Sign(lat) != Sign(n)) {
            Design.ProjOffMap = true;
        }
        return 0.0; // the apex of the cone
    }
    const SineCosine half = SineCosineOf(lat * HalfDegToRad + QuarterPi);
    return Divide(Design.ConicF, Power(half.sine / half.cosine, n)); // eq. 15-1, the tangent
}

} // namespace

void ForwardConic() {
    double rho = 0.0;
    try {
        rho = ConicRho();
    } catch (const RunTimeError& error) {
        // Without the radius neither coordinate can be computed.
        ReportProjectSelect(error.Number());
        return;
    }
    if (Design.ProjOffMap) {
        return;
    }
    const double theta = ((Design.ProjLon - Design.LonCentral) * Design.ConeConstant) * DegToRad;
    const SineCosine angle = SineCosineOf(theta);
    StoreProjected(angle.sine * rho, Design.ConicRho0 - angle.cosine * rho);
}

} // namespace quelmont
