#include "projection/inverse_place.h"

#include "core/angle_text.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "core/run_time_error.h"
#include "projection/inverse_frame.h"
#include "projection/inverse_pseudocylindrical.h"
#include "projection/inverse_select.h"
#include "projection/lobe_row.h"
#include "projection/projection_table.h"
#include "projection/true_longitude.h"

#include <algorithm>
#include <cmath>

namespace quelmont {

namespace {

/// How exactly a place is known, degrees.
constexpr double PlaceSlack = 1e-9;
/// The same of places in metres.
constexpr double MetreSlack = 1e-6;

bool Between(double low, double value, double high, double slack) {
    return low - slack <= value && value <= high + slack;
}

std::optional<GlobePlace> PlaceOnZone(double easting, double northing) {
    if (!Between(Design.LonZero, easting, Design.LonSpan, MetreSlack) ||
        !Between(Design.LatSouth, northing, Design.LatNorth, MetreSlack)) {
        return std::nullopt;
    }
    return UtmInverse(easting, northing);
}

bool OnMap(double x, double y, const RelativePlace& place) {
    if (IsAzimuthal(Design.ProjNum)) {
        return std::hypot(x, y) <= Design.MapXMax + SlackAt(Design.MapXMax);
    }
    return Between(Design.LatSouth, place.lat, Design.LatNorth, PlaceSlack) &&
           Between(Design.LonZero, place.lon, Design.LonSpan, PlaceSlack);
}

std::optional<GlobePlace> PlaceOnGlobe(double x, double y) {
    const auto place = InverseSelect(x, y);
    if (!place || !OnMap(x, y, *place)) {
        return std::nullopt;
    }
    return GlobePlace{place->lat, TrueLongitude(Design.LonWest + place->lon)};
}

// ---- Lobes.

/// A lobe from its number. Its place on the map counts from its central meridian.
std::optional<GlobePlace> PlaceInLobe(std::size_t lobe, double x, double y) {
    const double west = Design.LobeLonDeg[lobe - 1];
    const double width = Design.LobeLonDeg[lobe] - west;
    const double half = (width > 0.0 ? width : width + 360.0) / 2.0;
    const auto place = InverseMollweide(x - Design.LobeCentral[lobe], y, half);
    if (!place) {
        return std::nullopt;
    }
    return GlobePlace{place->lat, TrueLongitude(west + half + place->east)};
}

/// hemisphere: 0 north, 1 south; south, north: the bounds of its lobes, degrees.
std::optional<GlobePlace> PlaceInRow(std::size_t hemisphere, double south, double north, double x, double y) {
    if (!(south < north)) {
        return std::nullopt; // its lobes have no height
    }
    const LobeRow row = LobesOf(hemisphere);
    for (std::size_t lobe = row.first; lobe <= row.last; ++lobe) {
        const auto place = PlaceInLobe(lobe, x, y);
        if (place && Between(south, place->lat, north, PlaceSlack)) {
            return place;
        }
    }
    return std::nullopt;
}

std::optional<GlobePlace> PlaceOnLobes(double x, double y) {
    const double north = DegreesOf(LatitudeSeconds(Design.GridText[GridTextNorth]));
    const double south = DegreesOf(LatitudeSeconds(Design.GridText[GridTextSouth]));
    const auto place = PlaceInRow(0, std::max(south, 0.0), north, x, y);
    return place ? place : PlaceInRow(1, south, std::min(north, 0.0), x, y);
}

} // namespace

std::optional<GlobePlace> PlaceAt(double x, double y) {
    if (Design.BoundsProjNum != Design.ProjNum) {
        return std::nullopt;
    }
    try {
        switch (Design.ProjNum) {
        case ProjUtm:
            return PlaceOnZone(x, y);
        case ProjInterruptedMollweide:
            return PlaceOnLobes(x, y);
        default:
            return PlaceOnGlobe(x, y);
        }
    } catch (const RunTimeError&) {
        return std::nullopt; // texts of lobes that no dialog has accepted
    }
}

} // namespace quelmont
