#include "view/moved_centre.h"

#include "core/coordinates.h"
#include "core/degrees.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quelmont {

namespace {

constexpr double Quarter = 90.0;
constexpr double Half = 180.0;

double Sine(double degrees) { return std::sin(degrees * DegToRad); }
double Cosine(double degrees) { return std::cos(degrees * DegToRad); }

/// An angle as one from -180 to 180 degrees.
double Wrapped(double degrees) { return std::remainder(degrees, 2.0 * Half); }

} // namespace

PolarPlace SeenFrom(const GlobePlace& centre, const GlobePlace& place) {
    const double east = Cosine(place.lat) * Sine(place.lon - centre.lon);
    const double north = Cosine(centre.lat) * Sine(place.lat) -
                         Sine(centre.lat) * Cosine(place.lat) * Cosine(place.lon - centre.lon);
    const double up = Sine(centre.lat) * Sine(place.lat) +
                      Cosine(centre.lat) * Cosine(place.lat) * Cosine(place.lon - centre.lon);
    return {InDegrees(std::atan2(std::hypot(east, north), up)), InDegrees(std::atan2(east, north))};
}

GlobePlace CentreThatSees(const GlobePlace& place, const PolarPlace& seen, double nearLatitude) {
    // sin(lat of place) = a sin(lat of centre) + b cos(lat of centre) = radius sin(lat of centre + shift)
    const double a = Cosine(seen.distance);
    const double b = Sine(seen.distance) * Cosine(seen.azimuth);
    const double radius = std::hypot(a, b);
    const double shift = InDegrees(std::atan2(b, a));
    const double sum =
        radius > 0.0 ? InDegrees(std::asin(std::clamp(Sine(place.lat) / radius, -1.0, 1.0))) : 0.0;
    double lat = Half;
    for (const double root : std::array{Wrapped(sum - shift), Wrapped(Half - sum - shift)}) {
        const bool better = std::fabs(root - nearLatitude) < std::fabs(lat - nearLatitude);
        if (std::fabs(root) <= Quarter ? better || std::fabs(lat) > Quarter
                                       : better && std::fabs(lat) > Quarter) {
            lat = root;
        }
    }
    lat = std::clamp(lat, -Quarter, Quarter);
    const double east = Sine(seen.distance) * Sine(seen.azimuth);
    const double north =
        Cosine(lat) * Cosine(seen.distance) - Sine(lat) * Sine(seen.distance) * Cosine(seen.azimuth);
    return {lat, Wrapped(place.lon - InDegrees(std::atan2(east, north)))};
}

} // namespace quelmont
