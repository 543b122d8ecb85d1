#include "projection/cylindrical.h"

#include "core/map_design.h"
#include "projection/forward.h"
#include "projection/log_tangent.h"
#include "projection/whole_minutes.h"

#include <cmath>
#include <limits>

namespace quelmont {

namespace {

/// Snyder 1987, eq. 7-2. No number where the tangent has no logarithm: the poles lie at infinity.
double MercatorHeight(double latitude) {
    const double angle = latitude * HalfDegToRad + QuarterPi;
    // Between 15 and 85 degrees, north or south.
    if (std::fabs(std::fabs(latitude) - 50.0) <= 35.0) {
        return LogTangentOf(angle);
    }
    // The logarithm is 0 at the equator, where the last digits of the tangent show in it: the tangent is the
    // C library's.
    const double tangent = std::tan(angle);
    return tangent > 0.0 ? std::log(tangent) : std::numeric_limits<double>::quiet_NaN();
}

} // namespace

void ForwardMercator() {
    static WholeMinutes<double> minutes;
    const double x = (Design.ProjLon - Design.LonZero) * DegToRad;
    const double y = minutes.Of(Design.ProjLat, [] { return MercatorHeight(Design.ProjLat); });
    if (std::isnan(y)) {
        // The boundary dialog keeps the poles off the map.
        StoreX(x);
        ReportProjectSelect(ErrorInvalidCall);
        return;
    }
    StoreProjected(x, y);
}

void ForwardEquirectangular() {
    StoreProjected(((Design.ProjLon - Design.LonZero) * DegToRad) * Design.CosStdPar,
                   Design.ProjLat * DegToRad);
}

void ForwardCylindricalEqualArea() {
    const double x = ((Design.ProjLon - Design.LonZero) * DegToRad) * Design.CosStdPar;
    if (Design.CosStdPar == 0.0) {
        StoreX(x);
        ReportProjectSelect(ErrorDivisionByZero);
        return;
    }
    // Snyder 1987, eq. 10-1, 10-2 for a latitude of true scale.
    StoreProjected(x, SineCosineOfLatitude(Design.ProjLat).sine / Design.CosStdPar);
}

} // namespace quelmont
