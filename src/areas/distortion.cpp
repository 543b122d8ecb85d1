#include "areas/distortion.h"

#include "areas/area_frame.h"
#include "core/checked_math.h"
#include "core/map_design.h"
#include "graticule/lobes.h"
#include "projection/inverse_select.h"
#include "projection/inverse_utm.h"
#include "projection/map_in_hand.h"
#include "projection/utm.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

namespace quelmont {

namespace {

/// Of differences, degrees. Beside an antipode the scale of areas is a difference of products ten thousand
/// times as large: errors of the fourth order in the step are small enough there, those of the second are
/// not.
constexpr double Step = 1e-3;
constexpr double LargestLatitude = 90.0 - 2.0 * Step;

/// A place on the map of true degrees on UTM, or of relative ones; false if there is none.
bool Forward(double lat, double lon, PlanePoint& point) {
    if (Design.ProjNum != ProjUtm) {
        return ProjectPlace(lat, lon, point);
    }
    Design.ProjLat = lat;
    Design.ProjLon = lon;
    UtmForward();
    point = {Design.ProjLon, Design.ProjLat};
    return true;
}

/// How the place on the map changes, per radian of what is stepped in: by central differences over one and
/// over two steps (Abramowitz and Stegun 1964, 25.3.6).
std::optional<PlanePoint> Slope(double lat, double lon, double latStep, double lonStep) {
    PlanePoint before2, before, behind, behind2;
    if (!Forward(lat - 2.0 * latStep, lon - 2.0 * lonStep, before2) ||
        !Forward(lat - latStep, lon - lonStep, before) || !Forward(lat + latStep, lon + lonStep, behind) ||
        !Forward(lat + 2.0 * latStep, lon + 2.0 * lonStep, behind2)) {
        return std::nullopt;
    }
    constexpr double way = 12.0 * Step * DegToRad;
    return PlanePoint{(8.0 * (behind.x - before.x) - (behind2.x - before2.x)) / way,
                      (8.0 * (behind.y - before.y) - (behind2.y - before2.y)) / way};
}

/// Radii of curvature, map units: of the meridian, and of the circle of the parallel.
struct GlobeRadii {
    double meridian = 1.0, parallel = 1.0;
};

GlobeRadii RadiiAt(double lat) {
    const double cosine = std::cos(lat * DegToRad);
    if (Design.ProjNum != ProjUtm) {
        return {1.0, cosine};
    }
    // Snyder 1987, eq. 4-18 and 4-20.
    const double sine = std::sin(lat * DegToRad);
    const double w = 1.0 - Design.SpheroidE2 * sine * sine;
    const double normal = Design.SpheroidA / std::sqrt(w);
    return {normal * (1.0 - Design.SpheroidE2) / w, normal * cosine};
}

/// Eastward and northward are what unit steps on the globe are on the map.
Distortion DistortionOf(const PlanePoint& eastward, const PlanePoint& northward) {
    // The half sum and half difference of the axes of Tissot's ellipse, without the difference of nearly
    // equal squares of Snyder 1987, eq. 4-12 and 4-13.
    const double sum = std::hypot(eastward.x + northward.y, eastward.y - northward.x);
    const double difference = std::hypot(eastward.x - northward.y, eastward.y + northward.x);
    return {.meridian = std::hypot(northward.x, northward.y),
            .parallel = std::hypot(eastward.x, eastward.y),
            .area = std::fabs(eastward.x * northward.y - eastward.y * northward.x),
            // Eq. 4-9. A map that is its own mirror image somewhere has the two the other way round.
            .angle = 2.0 * std::asin(std::min(sum, difference) / std::max(sum, difference)) / DegToRad};
}

bool IsSound(const Distortion& distortion) {
    return std::isfinite(distortion.meridian) && std::isfinite(distortion.parallel) &&
           std::isfinite(distortion.area) && std::isfinite(distortion.angle);
}

bool Between(double low, double value, double high) {
    constexpr double slack = 1e-9; // degrees
    return low - slack <= value && value <= high + slack;
}

std::optional<Distortion> OfLobes(double x, double y) {
    for (const std::int16_t lobe : LobesWithHeight()) {
        CalcGraticuleInterrupt(lobe);
        Design.LobeOffsetX = Design.LobeCentral[static_cast<std::size_t>(lobe)];
        const std::optional<RelativePlace> place = InverseSelect(x, y);
        if (place && Between(Design.LatSouth, place->lat, Design.LatNorth) &&
            Between(Design.LonZero, place->lon, Design.LonSpan)) {
            return DistortionAt(place->lat, place->lon);
        }
    }
    return std::nullopt;
}

} // namespace

std::optional<Distortion> DistortionAt(double lat, double lon) {
    if (!(std::fabs(lat) <= LargestLatitude)) {
        return std::nullopt;
    }
    const std::optional<PlanePoint> east = Slope(lat, lon, 0.0, Step);
    const std::optional<PlanePoint> north = east ? Slope(lat, lon, Step, 0.0) : std::nullopt;
    if (!north) {
        return std::nullopt;
    }
    const GlobeRadii globe = RadiiAt(lat);
    const Distortion distortion = DistortionOf({east->x / globe.parallel, east->y / globe.parallel},
                                               {north->x / globe.meridian, north->y / globe.meridian});
    return IsSound(distortion) ? std::optional(distortion) : std::nullopt;
}

std::optional<Distortion> DistortionOfPoint(double x, double y) {
    if (Design.BoundsProjNum != Design.ProjNum) {
        return std::nullopt;
    }
    const MapInHand map;
    try {
        if (Design.ProjNum == ProjUtm) {
            const std::optional<GlobePlace> place = UtmInverse(x, y);
            return place ? DistortionAt(place->lat, place->lon) : std::nullopt;
        }
        if (Design.ProjNum == ProjInterruptedMollweide) {
            return OfLobes(x, y);
        }
        const std::optional<RelativePlace> place = InverseSelect(x, y);
        return place ? DistortionAt(place->lat, place->lon) : std::nullopt;
    } catch (const RunTimeError&) {
        return std::nullopt; // a map that no dialog has accepted
    }
}

} // namespace quelmont
