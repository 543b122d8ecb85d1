#include "projection/cylindrical.h"

#include "core/map_design.h"
#include "projection/forward.h"
#include "projection/log_tangent.h"
#include "projection/sine_cosine.h"

#include <cmath>

namespace quelmont {

void ForwardMercator() {
    const double x = (Design.ProjLon - Design.LonZero) * DegToRad;
    // Snyder 1987, eq. 7-2. The poles lie at infinity; the boundary dialog keeps them off the map.
    const double angle = Design.ProjLat * HalfDegToRad + QuarterPi;
    // Between 15 and 85 degrees, north or south.
    if (std::fabs(std::fabs(Design.ProjLat) - 50.0) <= 35.0) {
        StoreProjected(x, LogTangentOf(angle));
        return;
    }
    // The logarithm is 0 at the equator, where the last digits of the tangent show in it: the tangent is the
    // C library's.
    const double tangent = std::tan(angle);
    if (!(tangent > 0.0)) {
        StoreX(x);
        ReportProjectSelect(ErrorInvalidCall);
        return;
    }
    StoreProjected(x, std::log(tangent));
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
    StoreProjected(x, SineCosineOf(Design.ProjLat * DegToRad).sine / Design.CosStdPar);
}

} // namespace quelmont
