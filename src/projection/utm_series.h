#pragma once

#include "core/checked_math.h"
#include "core/coordinates.h"
#include "core/map_design.h"
#include "projection/interval.h"
#include "projection/sine_cosine.h"
#include "projection/sloped.h"

namespace quelmont {

template <typename Number>
struct UtmPlace {
    Number north, east; ///< metres
};

/// Length of the meridian from the equator to phi radians, metres.
template <typename Number>
Number MeridianArc(Number phi, Number sin2, Number cos2) {
    return (Design.UtmMeridianC0 * phi +
            ((((Design.UtmMeridianC3 * cos2) + Design.UtmMeridianC2) * cos2 + Design.UtmMeridianC1) * sin2)) *
           Design.SpheroidA;
}

/// What the series needs of a latitude.
template <typename Number>
struct LatitudeTerms {
    Number sine, cosine, tangent;
    Number sineOfTwice, cosineOfTwice;
};

/// p: radians.
inline LatitudeTerms<double> TermsOfLatitude(double p) {
    const auto [sine, cosine] = SineCosineOf(p);
    return {sine, cosine, sine / cosine, 2.0 * sine * cosine, 1.0 - 2.0 * sine * sine};
}
inline LatitudeTerms<Interval> TermsOfLatitude(Interval p) {
    return {sin(p), cos(p), tan(p), sin(2.0 * p), cos(2.0 * p)};
}
inline LatitudeTerms<Sloped> TermsOfLatitude(Sloped p) {
    return {sin(p), cos(p), sin(p) / cos(p), sin(2.0 * p), cos(2.0 * p)};
}

/// The forward series of the zone, for numbers, for intervals of them or for numbers with slopes.
///
/// p: latitude, radians. dl: longitude from the central meridian, degrees.
/// Reads the spheroid and zone of the design. Source: Snyder 1987, eq. 8-9 to 8-15.
template <typename Number>
UtmPlace<Number> UtmSeries(Number p, Number dl) {
    const auto [sinp, cosp, tanp, sin2p, cos2p] = TermsOfLatitude(p);
    const Number t = tanp * tanp;
    const Number t2 = t * t;
    const auto m = MeridianArc<Number>(p, sin2p, cos2p);
    const double ep2 = Design.SpheroidEp2;
    const Number n = Divide(Design.SpheroidA, SquareRoot(1.0 - (Design.SpheroidE2 * sinp) * sinp));
    const Number c = (ep2 * cosp) * cosp;
    const Number a = (dl * DegToRad) * cosp;
    const Number a2 = a * a;
    const Number a4 = a2 * a2;
    const Number a6 = a4 * a2;

    Number east = (((1.0 - t + c) * a2) * a) / 6.0 + a;
    east = ((((5.0 - 18.0 * t + t2 + 72.0 * c - 58.0 * ep2) * a4) * a) / 120.0) + east;
    east = (Design.UtmK0 * n) * east;

    Number north = a2 / 2.0 + (((5.0 - t + 9.0 * c + (4.0 * c) * c) * a4) / 24.0);
    north = (((61.0 - 58.0 * t + t2 + 600.0 * c - 330.0 * ep2) * a6) / 720.0) + north;
    north = ((m - Design.UtmM0) + (n * tanp) * north) * Design.UtmK0;

    return {north + Design.UtmFalseNorthing, east + Design.UtmFalseEasting};
}

} // namespace quelmont
