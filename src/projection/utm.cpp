#include "projection/utm.h"

#include "core/angle_text.h"
#include "core/checked_math.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/number_text.h"

#include <cmath>

namespace quelmont {

namespace {

void ReadZone() {
    Design.LonCentralSec = LongitudeSeconds(Design.UtmText[0]);
    Design.LonCentral = static_cast<double>(Design.LonCentralSec) / SecPerDegree;
    Design.LatCentralSec = LatitudeSeconds(Design.UtmText[1]);
    const double origin = static_cast<double>(Design.LatCentralSec) / SecPerDegree;
    DegMinSec(Design.LonCentral, Design.LonCentralText, "LON", 4);
    Design.LonMiddle = Design.LonCentral;
    DegMinSec(origin, Design.LatCentralText, "LAT", 4);
    Design.LatCentral = origin;
}

void SelectSpheroid() {
    for (const Spheroid& spheroid : Spheroids) {
        if (spheroid.name == Design.SpheroidName) {
            Design.SpheroidA = spheroid.equatorialRadius;
            Design.SpheroidF = 1.0 / spheroid.inverseFlattening;
        }
    }
}

/// Length of the meridian from the equator to phi radians, metres.
double MeridianArc(double phi, double sin2, double cos2) {
    return (Design.UtmMeridianC0 * phi +
            ((((Design.UtmMeridianC3 * cos2) + Design.UtmMeridianC2) * cos2 + Design.UtmMeridianC1) * sin2)) *
           Design.SpheroidA;
}

void MeridianSeries() {
    const double f = Design.SpheroidF;
    const double e2 = (f + f) - f * f;
    const double e4 = e2 * e2;
    const double e6 = e4 * e2;
    Design.SpheroidE2 = e2;
    Design.SpheroidEp2 = Divide(e2, 1.0 - e2);
    // The last term is added here, where Snyder subtracts it: maps of the same design must come
    // out the same. It shifts northings by up to 12 centimetres.
    Design.UtmMeridianC0 = ((1.0 - e2 / 4.0) - (e4 * 3.0) / 64.0) + (e6 * 5.0) / 256.0;
    const double a = -((e4 * 3.0) / 32.0 + (e2 * 3.0) / 8.0 + (e6 * 45.0) / 1024.0);
    const double b = (e4 * 15.0) / 256.0 + (e6 * 45.0) / 1024.0;
    const double d = (e6 * -35.0) / 3072.0;
    Design.UtmMeridianC1 = a - d;
    Design.UtmMeridianC2 = b + b;
    Design.UtmMeridianC3 = d * 4.0;
    const double p = Design.LatCentral * DegToRad;
    const double s = std::sin(p + p);
    const double c = std::cos(p + p);
    Design.UtmM0 = ((((c * Design.UtmMeridianC3 + Design.UtmMeridianC2) * c + Design.UtmMeridianC1) * s) +
                    p * Design.UtmMeridianC0) *
                   Design.SpheroidA;
}

} // namespace

void CalcUtmZone() {
    Guarded("CalcUtmZone", [] {
        ReadZone();
        SelectSpheroid();
        Design.UtmFalseEasting = ValueOf(Design.UtmText[2]);
        Design.UtmFalseNorthing = ValueOf(Design.UtmText[3]);
        Design.UtmK0 = ValueOf(Design.UtmText[4]);
        MeridianSeries();
    });
}

void UtmForward() {
    const double p = Design.ProjLat * DegToRad;
    const double sinp = std::sin(p);
    const double cosp = std::cos(p);
    const double tanp = std::tan(p);
    const double t = tanp * tanp;
    const double t2 = t * t;
    const double m = MeridianArc(p, std::sin(2.0 * p), std::cos(2.0 * p));
    const double ep2 = Design.SpheroidEp2;
    const double n = Divide(Design.SpheroidA, SquareRoot(1.0 - (Design.SpheroidE2 * sinp) * sinp));
    const double c = (ep2 * cosp) * cosp;
    double dl = Design.ProjLon - Design.LonCentral;
    if (dl > 180.0) {
        dl = dl - 360.0;
    } else if (dl < -180.0) {
        dl = 360.0 + dl;
    }
    const double a = (dl * DegToRad) * cosp;
    const double a2 = a * a;
    const double a4 = a2 * a2;
    const double a6 = a4 * a2;

    double east = (((1.0 - t + c) * a2) * a) / 6.0 + a;
    east = ((((5.0 - 18.0 * t + t2 + 72.0 * c - 58.0 * ep2) * a4) * a) / 120.0) + east;
    east = (Design.UtmK0 * n) * east;

    double north = a2 / 2.0 + (((5.0 - t + 9.0 * c + (4.0 * c) * c) * a4) / 24.0);
    north = (((61.0 - 58.0 * t + t2 + 600.0 * c - 330.0 * ep2) * a6) / 720.0) + north;
    north = ((m - Design.UtmM0) + (n * tanp) * north) * Design.UtmK0;

    Design.ProjLon = Finite(east + Design.UtmFalseEasting);
    Design.ProjLat = Finite(north + Design.UtmFalseNorthing);
}

} // namespace quelmont
