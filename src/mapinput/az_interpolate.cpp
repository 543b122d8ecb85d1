#include "mapinput/az_interpolate.h"

#include "core/checked_math.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "core/rounding.h"

#include <algorithm>
#include <cmath>

namespace quelmont {

namespace {

constexpr int NewtonSteps = 20;
constexpr int BisectionSteps = 60;
constexpr double SmallestChange = DegToRad * 3e-05;
constexpr double OneSecond = DegToRad / SecPerDegree;
/// Ends further apart than this lie on both sides of the seam.
constexpr double SeamLeap = 1.8 * Pi;

/// A segment from (a1, b1) to (a2, b2), latitude and relative longitude in radians, and the map's
/// circle as the zeros of the haversine of the distance from its centre less that of the range.
struct CircleCrossing {
    double a1, b1, a2, b2;
    double centreLat, centreLon, cosCentre, haversineOfRange;
    LineAtCircle way;

    double F(double a, double b) const {
        const double sinP = std::sin((a - centreLat) / 2.0);
        const double sinQ = std::sin((b - centreLon) / 2.0);
        return cosCentre * std::cos(a) * (sinQ * sinQ) + sinP * sinP - haversineOfRange;
    }
    double ByLongitude(double a, double b) const {
        const double q = (b - centreLon) / 2.0;
        return cosCentre * std::cos(a) * std::sin(q) * std::cos(q);
    }
    double ByLatitude(double a, double b) const {
        const double p = (a - centreLat) / 2.0;
        const double sinQ = std::sin((b - centreLon) / 2.0);
        return std::cos(p) * std::sin(p) - cosCentre * std::sin(a) * (sinQ * sinQ);
    }
    bool AcrossSeam() const { return std::fabs(b2 - b1) >= SeamLeap; }
};

template <typename Change>
double Newton(double start, Change&& change) {
    double value = start;
    for (int step = 0; step < NewtonSteps; ++step) {
        const double by = change(value);
        value = value - by;
        if (std::fabs(by) < SmallestChange) {
            break;
        }
    }
    return value;
}

/// Where f leaves its negative side on the way from previous to current, of which the one outside is
/// never asked: on the circle itself f may be 0, or less by rounding.
template <typename Function>
double Bisect(LineAtCircle way, double previous, double current, Function&& f) {
    double inside = way == LineAtCircle::Leaves ? previous : current;
    double outside = way == LineAtCircle::Leaves ? current : previous;
    for (int step = 0; step < BisectionSteps; ++step) {
        const double middle = (inside + outside) / 2.0;
        (f(middle) > 0.0 ? outside : inside) = middle;
    }
    return (inside + outside) / 2.0;
}

/// Also false for what is no number.
bool LiesBetween(double value, double end1, double end2) {
    return value >= std::min(end1, end2) - OneSecond && value <= std::max(end1, end2) + OneSecond;
}

double AlongParallel(const CircleCrossing& c) {
    // Across the seam the far end is a full circle away from where it stands.
    const double end1 = !c.AcrossSeam() ? c.b1 : c.b1 > c.b2 ? c.b1 - 2.0 * Pi : c.b1 + 2.0 * Pi;
    const double start = c.AcrossSeam() ? std::min(c.b1, c.b2) : (c.b1 + c.b2) / 2.0;
    const double b = Newton(start, [&](double at) { return c.F(c.a1, at) / c.ByLongitude(c.a1, at); });
    if (LiesBetween(b, end1, c.b2) || (c.AcrossSeam() && (LiesBetween(b - 2.0 * Pi, end1, c.b2) ||
                                                          LiesBetween(b + 2.0 * Pi, end1, c.b2)))) {
        return b;
    }
    return Bisect(c.way, end1, c.b2, [&](double at) { return c.F(c.a1, at); });
}

double AlongMeridian(const CircleCrossing& c) {
    const double a =
        Newton((c.a1 + c.a2) / 2.0, [&](double at) { return c.F(at, c.b1) / c.ByLatitude(at, c.b1); });
    if (LiesBetween(a, c.a1, c.a2)) {
        return a;
    }
    return Bisect(c.way, c.a1, c.a2, [&](double at) { return c.F(at, c.b1); });
}

/// Returns the latitude and leaves the longitude in b.
double AlongSlope(const CircleCrossing& c, double& b) {
    // The numerator across the seam is positive whatever the order of the two longitudes.
    const double rise = c.AcrossSeam() ? 2.0 * Pi - std::fabs(c.b2 - c.b1) : c.b2 - c.b1;
    const double m = rise / (c.a2 - c.a1);
    const auto lonAt = [&](double at) { return (at - c.a2) * m + c.b2; };
    double a = Newton((c.a1 + c.a2) / 2.0, [&](double at) {
        const double lon = lonAt(at);
        return c.F(at, lon) / (c.ByLatitude(at, lon) + c.ByLongitude(at, lon) * m);
    });
    if (!LiesBetween(a, c.a1, c.a2)) {
        a = Bisect(c.way, c.a1, c.a2, [&](double at) { return c.F(at, lonAt(at)); });
    }
    b = lonAt(a);
    return a;
}

double Radians(std::int32_t seconds) { return DegreesOf(seconds) * DegToRad; }

std::int32_t SecondsOfRadians(double radians) { return RoundToInt32(InDegrees(radians) * SecPerDegree); }

} // namespace

void AzInterpolate(std::int32_t& lat, std::int32_t& lon, LineAtCircle way) {
    const double halfRange = std::sin(DegreesOf(Design.RangeSec) * HalfDegToRad);
    const CircleCrossing c{Radians(Design.PointLatSecPrev),
                           Radians(Design.PointLonSecPrev),
                           Radians(Design.PointLatSec),
                           Radians(Design.PointLonSec),
                           Design.LatCentralRad,
                           Design.LonCentral * DegToRad,
                           Design.CosLatCentral,
                           halfRange * halfRange,
                           way};
    double a = 0.0;
    double b = 0.0;
    if (c.a1 == c.a2 && c.b1 != c.b2) {
        a = c.a1;
        b = AlongParallel(c);
    } else if (c.b1 == c.b2 && c.a1 != c.a2) {
        a = AlongMeridian(c);
        b = c.b1;
    } else if (c.a1 != c.a2) {
        a = AlongSlope(c, b);
    }
    lat = SecondsOfRadians(a);
    lon = SecondsOfRadians(b);
}

} // namespace quelmont
