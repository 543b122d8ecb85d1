#include "projection/azimuthal.h"

#include "core/map_design.h"
#include "projection/arctangent.h"
#include "projection/forward.h"
#include "projection/projection_table.h"
#include "projection/sine_cosine.h"
#include "projection/whole_minutes.h"

#include <cmath>

namespace quelmont {

namespace {

AzimuthalTerms TermsOfPoint() {
    AzimuthalTerms terms;
    const double dLon = (Design.ProjLon - Design.LonCentral) * DegToRad;
    const SineCosine lat = SineCosineOfLatitude(Design.ProjLat);
    const SineCosine lon = SineCosineOf(dLon);
    terms.cosLat = lat.cosine;
    terms.sinLat = lat.sine;
    terms.cosDLon = lon.cosine;
    terms.sinDLon = lon.sine;
    // Snyder 1987, eq. 5-3.
    terms.cosC = (terms.cosLat * Design.CosLatCentral) * terms.cosDLon + terms.sinLat * Design.SinLatCentral;
    if (std::fabs(terms.cosC) > 1.0) {
        terms.cosC = Sign(terms.cosC);
    }
    return terms;
}

bool BeyondHorizon(double cosC) {
    const auto index = static_cast<std::size_t>(Design.ProjNum - ProjGnomonic);
    return !(cosC > Design.HorizonCos[index]) ||
           (cosC <= AntipodeCosine && PropertiesOf(Design.ProjNum).antipode);
}

/// Distance from the centre over its sine, for the equidistant projection. Snyder 1987, eq. 25-2.
double EquidistantScale(double cosC) {
    if (cosC == 1.0) {
        return 1.0;
    }
    const double s = std::sqrt(1.0 - cosC * cosC);
    double c = QuarterPi + QuarterPi;
    if (std::fabs(cosC) >= 1e-08) {
        c = ArctangentOf(s, cosC);
        c = c + (c < 0.0 ? Pi : 0.0);
    }
    return c / s;
}

/// Scale of the point, k' in Snyder 1987: eq. 22-3, 21-4, 20-3 and following, 23-3, 25-2, 24-2.
double Scale(double cosC) {
    switch (Design.ProjNum) {
    case ProjGnomonic:
        return 1.0 / cosC;
    case ProjStereographic:
        return 2.0 / (cosC + 1.0);
    case ProjOrthographic:
        return 1.0;
    case ProjVerticalPerspective:
        return (Design.VpP - 1.0) / (Design.VpP - cosC);
    case ProjAzimuthalEquidistant:
        return EquidistantScale(cosC);
    default:
        return std::sqrt(2.0 / (cosC + 1.0));
    }
}

} // namespace

void ForwardAzimuthal(AzimuthalTerms* tested) {
    const bool resumes = Design.ProjTestMode == TestResume;
    const AzimuthalTerms terms = resumes && tested != nullptr ? *tested : TermsOfPoint();
    if (resumes) {
        Design.ProjTestMode = TestNone;
    } else {
        const bool testOnly = Design.ProjTestMode != TestNone;
        if (testOnly && tested != nullptr) {
            *tested = terms;
        }
        if (BeyondHorizon(terms.cosC)) {
            Design.PointStatus = PointBeyondHorizon;
            Design.ProjOffMap = true;
            return;
        }
        if (testOnly) {
            Design.PointStatus = terms.cosC < Design.CosRange ? PointOutOfRange : PointInRange;
            Design.ProjOffMap = true;
            return;
        }
    }
    const double k = Scale(terms.cosC);
    if (!std::isfinite(k)) {
        // Without the scale neither coordinate can be computed.
        ReportProjectSelect(ErrorDivisionByZero);
        return;
    }
    StoreProjected(
        (terms.cosLat * k) * terms.sinDLon,
        (terms.sinLat * Design.CosLatCentral - (terms.cosLat * Design.SinLatCentral) * terms.cosDLon) * k);
}

} // namespace quelmont
