#include "projection/round_trip.h"

#include "core/map_design.h"
#include "projection/map_fields.h"
#include "projection/projection_table.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace quelmont {

namespace {

constexpr double Degree = std::numbers::pi / 180.0;
constexpr double NoNumber = std::numeric_limits<double>::quiet_NaN();

class Dice {
public:
    explicit Dice(std::mt19937& random_) : random(random_) {}
    bool OneIn(int n) { return std::uniform_int_distribution<int>(1, n)(random) == 1; }
    /// Degrees, in whole minutes.
    double Angle(double low, double high) {
        return std::uniform_int_distribution<int>(static_cast<int>(low * 60.0),
                                                  static_cast<int>(high * 60.0))(random) /
               60.0;
    }
    double Real(double low, double high) { return std::uniform_real_distribution<double>(low, high)(random); }

private:
    std::mt19937& random;
};

bool AcceptsParallels(std::int16_t projNum, const MapOfSweep& map) {
    const double p1 = std::fabs(map.std1);
    const double p2 = std::fabs(map.std2);
    if (!(map.std1 > map.std2) || p1 == p2 || !(map.std1 < map.north) || !(map.std2 > map.south)) {
        return false;
    }
    if (projNum != ProjConformalConic) {
        return true;
    }
    const bool bothPoles = map.north == 90.0 && map.south == -90.0;
    return !bothPoles && p1 < 90.0 && p2 < 90.0 && (map.north < 90.0 || p1 > p2) &&
           (map.south > -90.0 || p2 > p1);
}

MapOfSweep RandomDisc(std::int16_t projNum, Dice& dice) {
    MapOfSweep map;
    map.centre = dice.OneIn(5) ? 90.0 : dice.OneIn(4) ? -90.0 : dice.OneIn(5) ? 0.0 : dice.Angle(-90.0, 90.0);
    if (projNum == ProjVerticalPerspective) {
        map.height = std::floor(std::pow(10.0, dice.Real(0.0, 8.0)));
    }
    return map;
}

} // namespace

MapOfSweep RandomMap(std::int16_t projNum, std::mt19937& random) {
    Dice dice(random);
    if (IsAzimuthal(projNum)) {
        return RandomDisc(projNum, dice);
    }
    const double furthest = projNum == ProjMercator ? 89.0 : 90.0;
    MapOfSweep map;
    do {
        map.north = dice.OneIn(3) ? furthest : dice.OneIn(6) ? 0.0 : dice.Angle(-furthest, furthest);
        map.south = dice.OneIn(3) ? -furthest : dice.OneIn(6) ? 0.0 : dice.Angle(-furthest, furthest);
        map.span = dice.OneIn(3) ? 360.0 : dice.Angle(1.0, 360.0);
        if (IsConic(projNum)) {
            map.std1 = dice.Angle(-90.0, 90.0);
            map.std2 = dice.Angle(-90.0, 90.0);
        } else {
            map.std1 = dice.OneIn(3) ? 0.0 : dice.Angle(0.0, 89.0);
        }
    } while (!(map.north > map.south) || (IsConic(projNum) && !AcceptsParallels(projNum, map)));
    return map;
}

std::optional<ReferencePlace> ForwardOf(const RelativePlace& place) {
    Design.ProjX = NoNumber;
    Design.ProjY = NoNumber;
    ProjectAt(place.lat, place.lon);
    if (Design.ProjOffMap || std::isnan(Design.ProjX) || std::isnan(Design.ProjY)) {
        return std::nullopt;
    }
    return ReferencePlace{Design.ProjX, Design.ProjY};
}

double Apart(const ReferencePlace& a, const ReferencePlace& b) { return std::hypot(a.x - b.x, a.y - b.y); }

double Grain(const RelativePlace& place) {
    const auto here = ForwardOf(place);
    double grain = 0.0;
    const auto see = [&](double lat, double lon) {
        const auto there = ForwardOf({std::clamp(lat, -90.0, 90.0), lon});
        if (here && there) {
            grain = std::max(grain, Apart(*here, *there));
        }
    };
    for (const double way : {-1000.0, 1000.0}) {
        double lat = place.lat;
        double lon = place.lon;
        for (int step = 0; step < 5; ++step) {
            lat = std::nextafter(lat, way);
            lon = std::nextafter(lon, way);
            see(lat, place.lon);
            see(place.lat, lon);
            see(lat, lon);
        }
    }
    return grain;
}

namespace {

double MollweideNoise(const RelativePlace& place) {
    const auto point = ForwardOf(place);
    const double cosineSquared = point ? std::max(1e-9, 1.0 - point->y * point->y / 2.0) : 1.0;
    // Half a dozen roundings over the slope; half a turn is 2.83 earth radii at theta 0.
    return 8e-16 / (4.0 * cosineSquared) * 2.83;
}

double CosineNoise(const RelativePlace& place) {
    const double c = DistanceDegrees({Design.LatCentral, Design.LonCentral}, {place.lat, place.lon}) * Degree;
    const double sine = std::max(1e-9, std::sin(c));
    const double cosine = std::cos(c);
    const double toAntipode = 2.0 * std::pow(std::cos(c / 2.0), 2.0); // 1 + cosine
    // Of the factor that multiplies the sine, for an error of 1 of the cosine.
    const double slope = [&] {
        switch (Design.ProjNum) {
        case ProjGnomonic:
            return 1.0 / (cosine * cosine);
        case ProjStereographic:
            return 2.0 / (toAntipode * toAntipode);
        case ProjOrthographic:
            return 0.0;
        case ProjVerticalPerspective:
            return (Design.VpP - 1.0) / std::pow(Design.VpP - cosine, 2.0);
        case ProjAzimuthalEquidistant:
            return (1.0 + c * std::fabs(cosine) / sine) / (sine * sine);
        default:
            return std::sqrt(0.5 / std::pow(toAntipode, 3.0));
        }
    }();
    // Half a dozen roundings of numbers up to 1, and those of the degrees.
    return 1e-15 * slope * sine;
}

} // namespace

double Noise(const RelativePlace& place) {
    if (Design.ProjNum == ProjMollweide || Design.ProjNum == ProjInterruptedMollweide) {
        return MollweideNoise(place);
    }
    return IsAzimuthal(Design.ProjNum) ? CosineNoise(place) : 0.0;
}

double LeastScale(const RelativePlace& place) {
    constexpr double step = 1e-5; // degrees
    const auto here = ForwardOf(place);
    const auto moved = [&](double dLat, double dLon) {
        auto there = ForwardOf({place.lat + dLat, place.lon + dLon});
        const double sign = there ? 1.0 : -1.0;
        there = there ? there : ForwardOf({place.lat - dLat, place.lon - dLon});
        return here && there ? ReferencePlace{sign * (there->x - here->x) / (step * Degree),
                                              sign * (there->y - here->y) / (step * Degree)}
                             : ReferencePlace{};
    };
    // Towards the equator and the central meridian, where there always is something.
    const double cosine = std::cos(place.lat * Degree);
    if (cosine < 1e-9) {
        return 0.0;
    }
    const ReferencePlace north = moved(place.lat > 0.0 ? -step : step, 0.0);
    const ReferencePlace east = moved(0.0, place.lon > Design.LonCentral ? -step : step);
    const double a = north.x;
    const double b = north.y;
    const double c = east.x / cosine;
    const double d = east.y / cosine;
    const double squares = a * a + b * b + c * c + d * d;
    const double area = std::fabs(a * d - b * c);
    const double difference = std::sqrt(std::max(0.0, squares * squares / 4.0 - area * area));
    const double greatest = std::sqrt(squares / 2.0 + difference);
    return greatest > 0.0 ? area / greatest : 0.0;
}

namespace {

std::string Text(const RelativePlace& place) {
    return testing::PrintToString(place.lat) + ", " + testing::PrintToString(place.lon);
}

testing::AssertionResult ReturnsTo(const ReferencePlace& place, const RelativePlace& found,
                                   RoundTrips& trips) {
    if (!(std::fabs(found.lat) <= 90.0) || !(std::fabs(found.lon - Design.LonCentral) <= 180.0 + 1e-12)) {
        return testing::AssertionFailure() << "outside the frame: " << Text(found);
    }
    const auto back = ForwardOf(found);
    if (!back) {
        return testing::AssertionFailure() << "the inverse " << Text(found) << " has no place in the plane";
    }
    const double error = Apart(place, *back);
    ++trips.points;
    trips.plain += error <= 1e-12 ? 1 : 0;
    const double noise = Noise(found);
    if (!(error <= 1e-12 + noise) && !(error <= 1e-12 + noise + 4.0 * Grain(found))) {
        return testing::AssertionFailure() << "comes back " << error << " earth radii away by " << Text(found)
                                           << ", grain " << Grain(found) << ", noise " << noise;
    }
    return testing::AssertionSuccess();
}

} // namespace

testing::AssertionResult ComesBack(const RelativePlace& point, RoundTrips& trips) {
    const auto place = ForwardOf(point);
    if (!place || Apart(*place, {}) > 1e9) {
        return testing::AssertionSuccess();
    }
    const auto found = InverseSelect(place->x, place->y);
    if (!found) {
        return testing::AssertionFailure() << "no inverse of " << Text(point);
    }
    auto result = ReturnsTo(*place, *found, trips);
    if (!result) {
        return result << " from " << Text(point);
    }
    const double scale = LeastScale(point);
    const double noise = Noise(point);
    // Where the noise is large, no scale can be measured.
    if (scale <= 0.01 || noise > 1e-10) {
        return result;
    }
    ++trips.places;
    const double away = DistanceDegrees({point.lat, point.lon}, {found->lat, found->lon});
    if (!(away <= 1e-9) && !(away <= 1e-9 + (noise + 4.0 * Grain(point)) / scale / Degree)) {
        return testing::AssertionFailure() << Text(*found) << " is " << away << " degrees from "
                                           << Text(point) << ", where the least scale is " << scale;
    }
    return result;
}

testing::AssertionResult ComesBack(const ReferencePlace& place, RoundTrips& trips) {
    const auto found = InverseSelect(place.x, place.y);
    if (!found) {
        return testing::AssertionSuccess();
    }
    auto result = ReturnsTo(place, *found, trips);
    if (!result) {
        return result << " from " << place.x << ", " << place.y;
    }
    return result;
}

} // namespace quelmont
