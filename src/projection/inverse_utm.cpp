#include "projection/inverse_utm.h"

#include "core/degrees.h"
#include "core/map_design.h"
#include "core/run_time_error.h"
#include "projection/sine_cosine.h"
#include "projection/sloped.h"
#include "projection/true_longitude.h"
#include "projection/utm_series.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace quelmont {

namespace {

/// Degrees from the central meridian.
constexpr double Furthest = 90.0;
constexpr double QuarterTurn = 90.0 * DegToRad;

/// A place as the series takes it: latitude in radians, longitude from the central meridian in degrees.
struct SeriesPlace {
    double p, dl;
};

struct Target {
    double easting, northing;
    /// What rounding leaves of the metres.
    double Rounding() const { return 1e-8 + 8e-16 * (std::fabs(easting) + std::fabs(northing)); }
};

/// Metres between the target and where the series puts a place; no number counts as endless.
double Miss(const Target& target, const SeriesPlace& place) {
    const UtmPlace<double> at = UtmSeries(place.p, place.dl);
    const double miss = std::hypot(at.east - target.easting, at.north - target.northing);
    return std::isnan(miss) ? std::numeric_limits<double>::infinity() : miss;
}

SeriesPlace Moved(const SeriesPlace& place, double p, double dl) {
    return {std::clamp(place.p + p, -QuarterTurn, QuarterTurn),
            std::clamp(place.dl + dl, -Furthest, Furthest)};
}

/// Newton's rule from a start, as long as it leads nearer to the target. From a sphere it always does: the
/// series bends nowhere back within the furthest degrees.
std::optional<SeriesPlace> Solve(const Target& target, SeriesPlace place) {
    constexpr double enough = 2e-7; // metres
    double miss = Miss(target, place);
    for (int round = 0; round < 50 && miss > target.Rounding(); ++round) {
        const UtmPlace<Sloped> at = UtmSeries(Sloped(place.p, 1.0, 0.0), Sloped(place.dl, 0.0, 1.0));
        const double east = target.easting - at.east.value;
        const double north = target.northing - at.north.value;
        const double determinant = at.north.first * at.east.second - at.north.second * at.east.first;
        const double p = (north * at.east.second - east * at.north.second) / determinant;
        const double dl = (east * at.north.first - north * at.east.first) / determinant;
        if (!std::isfinite(p) || !std::isfinite(dl)) {
            break;
        }
        const SeriesPlace next = Moved(place, p, dl);
        const double nextMiss = Miss(target, next);
        if (!(nextMiss < miss)) {
            break;
        }
        place = next;
        miss = nextMiss;
    }
    return miss <= std::max(enough, 4.0 * target.Rounding()) ? std::optional(place) : std::nullopt;
}

/// The target without scale and false origin, in equatorial radii.
struct Reduced {
    double east, arc;
};

Reduced Reduce(const Target& target) {
    const double unit = Design.UtmK0 * Design.SpheroidA;
    return {(target.easting - Design.UtmFalseEasting) / unit,
            (target.northing - Design.UtmFalseNorthing) / unit + Design.UtmM0 / Design.SpheroidA};
}

/// The place on a sphere that touches the meridian at the same northing, whose latitude is nearly in
/// proportion to the arc. Snyder 1987, eq. 8-6, 8-7.
SeriesPlace SphericalStart(const Reduced& reduced) {
    const double p = reduced.arc / Design.UtmMeridianC0;
    const auto [sine, cosine] = SineCosineOf(p);
    const double away = std::sinh(reduced.east * std::sqrt(1.0 - Design.SpheroidE2 * sine * sine));
    return Moved({0.0, 0.0}, std::atan2(sine, std::hypot(cosine, away)), InDegrees(std::atan2(away, cosine)));
}

std::optional<SeriesPlace> Find(const Target& target) {
    const Reduced reduced = Reduce(target);
    // The eastings of places within 90 degrees reach 2.63 radii, at the equator, the northings 1.70.
    if (!(std::fabs(reduced.east) < 2.7 && std::fabs(reduced.arc) < 1.8)) {
        return std::nullopt;
    }
    return Solve(target, SphericalStart(reduced));
}

} // namespace

std::optional<GlobePlace> UtmInverse(double easting, double northing) {
    try {
        const auto place = Find({easting, northing});
        if (!place) {
            return std::nullopt;
        }
        return GlobePlace{std::clamp(InDegrees(place->p), -90.0, 90.0),
                          TrueLongitude(Design.LonCentral + place->dl)};
    } catch (const RunTimeError&) {
        return std::nullopt; // constants that are no zone's
    }
}

} // namespace quelmont
