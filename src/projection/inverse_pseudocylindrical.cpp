#include "projection/inverse_pseudocylindrical.h"

#include "core/map_design.h"
#include "projection/inverse_frame.h"
#include "projection/robinson_polynomials.h"
#include "projection/sloped.h"

#include <algorithm>
#include <cmath>

namespace quelmont {

std::optional<RelativePlace> InverseHammer(double x, double y) {
    // w = cos lat cos (lon / 2) is 0 on the outline. Snyder 1987, p. 185; the angles as directions, which
    // keeps all digits at the poles.
    double w = 1.0 - x * x / 8.0 - y * y / 2.0;
    if (!(w >= -OutlineSlack)) {
        return std::nullopt;
    }
    w = std::max(w, 0.0);
    const double z = std::sqrt((1.0 + w) / 2.0);
    const double sideways = x * z / 2.0; // cos lat sin (lon / 2)
    const double lat = std::atan2(y * z, std::hypot(w, sideways));
    const double east = 2.0 * InDegrees(std::atan2(sideways, w));
    return FromCentral(LatitudeOf(lat), std::clamp(east, -180.0, 180.0));
}

namespace {

/// What Pi is smaller than the ratio of a circle, radians.
constexpr double PiRest = 3.2384626433832795e-15;

/// Latitude in radians from the auxiliary angle theta of Mollweide, 2 theta + sin 2 theta = pi sin phi.
/// Snyder 1987, eq. 31-6.
///
/// sine: of theta, from 0 to 1.
double MollweideLatitude(double sine) {
    // Nearer to the pole sin phi has too few digits; then the equation is written with the complements d of
    // theta and e of phi: 2 d - sin 2 d = pi (1 - cos e).
    constexpr double polar = 0.9;
    if (sine < polar) {
        const double theta = std::asin(sine);
        return std::asin((2.0 * theta + 2.0 * sine * std::sqrt((1.0 - sine) * (1.0 + sine))) / Pi);
    }
    const double twice = 4.0 * std::asin(std::sqrt((1.0 - sine) / 2.0)); // 2 d, below 0.91
    const double t2 = twice * twice;
    // The series of x - sin x to the last digit.
    const double difference =
        twice * t2 / 6.0 *
        (1.0 -
         t2 / 20.0 *
             (1.0 -
              t2 / 42.0 * (1.0 - t2 / 72.0 * (1.0 - t2 / 110.0 * (1.0 - t2 / 156.0 * (1.0 - t2 / 210.0))))));
    const double e = 2.0 * std::asin(std::sqrt(std::max(0.0, (difference - PiRest) / (2.0 * Pi))));
    return 2.0 * QuarterPi - e + PiRest / 2.0;
}

} // namespace

std::optional<CentralPlace> InverseMollweide(double x, double y, double half) {
    const double height = std::fabs(y);
    if (!(height <= Sqrt2 + OutlineSlack)) {
        return std::nullopt;
    }
    const double sine = std::min(height / Sqrt2, 1.0);
    const double cosine = std::sqrt((1.0 - sine) * (1.0 + sine));
    const auto east = DegreesWithin(x, (Sqrt2 + Sqrt2) * DegToRad * cosine / Pi, half);
    if (!east) {
        return std::nullopt;
    }
    return CentralPlace{std::copysign(LatitudeOf(MollweideLatitude(sine)), y), *east};
}

namespace {

/// Latitude from 0 to 90 degrees whose relative distance from the equator is the given one, which lies
/// between those of the equator and the pole. Newton's rule; a step that leaves the bracket halves it.
double RobinsonLatitude(double distance) {
    double low = 0.0;
    double high = 90.0;
    double lat = distance * high;
    // Five steps do; halving alone would need 54.
    for (int round = 0; round < 64; ++round) {
        const Sloped at = RobinsonDistance(Sloped(lat, 1.0, 0.0));
        const double excess = at.value - distance;
        (excess > 0.0 ? high : low) = lat;
        double next = lat - excess / at.first;
        if (!(next >= low && next <= high)) {
            next = (low + high) / 2.0;
        }
        const double step = std::fabs(next - lat);
        lat = next;
        if (step <= 1e-14) {
            break;
        }
    }
    return lat;
}

} // namespace

std::optional<RelativePlace> InverseRobinson(double x, double y) {
    const double top = RobinsonDistance(90.0);
    const double distance = std::fabs(y) / RobinsonHeight;
    if (!(distance <= top + OutlineSlack)) {
        return std::nullopt;
    }
    const double lat = distance >= top ? 90.0 : RobinsonLatitude(distance);
    const double unitsPerDegree = RobinsonLength(lat) * RobinsonWidth * DegToRad;
    return FromCentral(std::copysign(lat, y), DegreesWithin(x, unitsPerDegree, 180.0));
}

} // namespace quelmont
