#include "surround/scale_bar_place.h"

#include "core/angle_text.h"
#include "core/checked_math.h"
#include "core/degrees.h"
#include "core/distance_units.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "projection/inverse_select.h"
#include "projection/inverse_utm.h"
#include "projection/map_in_hand.h"
#include "projection/project_place.h"
#include "projection/projection_table.h"
#include "projection/utm.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace quelmont {

namespace {

/// A bar at the edge of the map may be wrong by so much.
constexpr double LargestRatio = 1.25;
/// Nearer to a pole a parallel is a point.
constexpr double LargestLatitude = 89.9;
/// Of a difference, degrees: the errors of its square and of the roundings are both below 1e-9.
constexpr double Step = 2e-3;

double KmPerRadian() { return KilometresPerNauticalMile * 60.0 / DegToRad; }

std::optional<PlanePlace> Projected(double lat, double lon) {
    return ProjectPlace(lat, lon) ? std::optional(PlanePlace{Design.ProjX, Design.ProjY}) : std::nullopt;
}

/// Length on the map of a way of two steps about a point, per radian of what is stepped in.
std::optional<double> Stretch(double lat, double lon, double latStep, double lonStep) {
    const std::optional<PlanePlace> before = Projected(lat - latStep, lon - lonStep);
    const std::optional<PlanePlace> behind = Projected(lat + latStep, lon + lonStep);
    if (!before || !behind) {
        return std::nullopt;
    }
    return std::hypot(behind->x - before->x, behind->y - before->y) / (2.0 * Step * DegToRad);
}

/// Scale along the parallel and along the meridian: map units per radian on the globe.
std::optional<double> ParallelScale(double lat, double lon) {
    const std::optional<double> stretch = Stretch(lat, lon, 0.0, Step);
    return stretch ? std::optional(*stretch / std::cos(lat * DegToRad)) : std::nullopt;
}
std::optional<double> MeridianScale(double lat, double lon) { return Stretch(lat, lon, Step, 0.0); }

/// The bounds of the whole map, degrees.
struct Latitudes {
    double south = Design.LatSouth, north = Design.LatNorth;
};

Latitudes LatitudesOfMap() {
    if (Design.ProjNum == ProjInterruptedMollweide) {
        return {DegreesOf(LatitudeSeconds(Design.GridText[GridTextSouth])),
                DegreesOf(LatitudeSeconds(Design.GridText[GridTextNorth]))};
    }
    return {};
}

// ---- Words.

std::string LatitudeWords(double lat) {
    const std::int32_t seconds = RoundToInt32(std::fabs(lat) * SecPerDegree);
    const std::int32_t minutes = seconds / 60 % 60;
    std::string text = std::to_string(seconds / SecPerDegree) + "\u00B0";
    const auto twoDigits = [](std::int32_t value) { return (value < 10 ? "0" : "") + std::to_string(value); };
    if (seconds % SecPerDegree != 0) {
        text += twoDigits(minutes) + "'";
    }
    if (seconds % 60 != 0) {
        text += twoDigits(seconds % 60) + "\"";
    }
    return text + (lat < 0.0 ? "S" : "N");
}

std::string WordsOfParallel(double lat) {
    return RoundToInt32(lat * SecPerDegree) == 0 ? "Scale along the equator"
                                                 : "Scale at " + LatitudeWords(lat);
}

// ---- The scale is the same all along a parallel.

constexpr double HalfRound = 180.0; // degrees

/// A latitude near the middle, on the coarsest of these steps of which the map has eight.
double RoundMiddle(Latitudes map) {
    constexpr std::array steps = {36000, 18000, 7200, 3600, 1800, 600, 300, 60, 30, 10, 5, 1}; // seconds
    const double middle = (map.north + map.south) / 2.0 * SecPerDegree;
    const double eighth = (map.north - map.south) / 8.0 * SecPerDegree;
    const auto* const step =
        std::find_if(steps.begin(), steps.end() - 1, [&](int seconds) { return seconds <= eighth; });
    return std::clamp(RoundToInt32(middle / *step) * static_cast<double>(*step) / SecPerDegree, map.south,
                      map.north);
}

double ParallelOfChoice(Latitudes map) {
    const bool holdsEquator = map.south <= 0.0 && map.north >= 0.0;
    const bool world =
        Design.ProjNum == ProjInterruptedMollweide || Design.LonSpan - Design.LonZero >= HalfRound;
    return holdsEquator && world ? 0.0 : RoundMiddle(map);
}

std::optional<ScaleBarPlace> OnParallel(std::optional<double> latitude) {
    const Latitudes map = LatitudesOfMap();
    const double lat = latitude.value_or(ParallelOfChoice(map));
    if (lat < map.south || lat > map.north || std::fabs(lat) > LargestLatitude) {
        return std::nullopt;
    }
    const std::optional<PlanePlace> at = Projected(lat, Design.LonCentral);
    const std::optional<double> scale = ParallelScale(lat, Design.LonCentral);
    if (!at || !scale) {
        return std::nullopt;
    }
    return ScaleBarPlace{*at, *scale / KmPerRadian(), true, WordsOfParallel(lat)};
}

// ---- It changes along a parallel.

bool IsFar(std::optional<double> scale, double scaleAtPlace) {
    return !scale || !(*scale <= scaleAtPlace * LargestRatio && *scale * LargestRatio >= scaleAtPlace);
}

std::optional<ScaleBarPlace> OnCentralMeridian(double lat, std::string words) {
    const std::optional<PlanePlace> at = Projected(lat, Design.LonCentral);
    const std::optional<double> scale = ParallelScale(lat, Design.LonCentral);
    if (!at || !scale || std::fabs(lat) > LargestLatitude) {
        return std::nullopt;
    }
    return ScaleBarPlace{*at, *scale / KmPerRadian(), false, std::move(words)};
}

std::string WordsOnMeridian(double lat) {
    return (RoundToInt32(lat * SecPerDegree) == 0 ? "Scale on the equator"
                                                  : "Scale at " + LatitudeWords(lat)) +
           " on the central meridian";
}

std::optional<ScaleBarPlace> OnHammer(std::optional<double> latitude) {
    const Latitudes map;
    if (latitude) {
        return *latitude < map.south || *latitude > map.north
                   ? std::nullopt
                   : OnCentralMeridian(*latitude, WordsOnMeridian(*latitude));
    }
    const double lat = (map.north + map.south) / 2.0;
    std::optional<ScaleBarPlace> place = OnCentralMeridian(lat, "Scale at the centre");
    if (!place) {
        return std::nullopt;
    }
    const double scale = place->unitsPerKm * KmPerRadian();
    const auto within = [](double value) { return std::clamp(value, -90.0 + 2.0 * Step, 90.0 - 2.0 * Step); };
    for (const double edge : {map.south, map.north}) {
        if (IsFar(MeridianScale(within(edge), Design.LonCentral), scale)) {
            return std::nullopt;
        }
        // The scale across the eastern corners; the western ones are their image.
        const std::optional<double> across = ParallelScale(within(edge), Design.LonSpan);
        if (std::fabs(edge) < LargestLatitude && IsFar(across, scale)) {
            return std::nullopt;
        }
    }
    return IsFar(ParallelScale(lat, Design.LonSpan), scale) ? std::nullopt : place;
}

/// Whether the scale at the rim is too far from that at the centre, outward or along the rim.
bool ChangesTowardsRim(double scale) {
    const double range = std::min(DegreesOf(Design.RangeSec), 179.9);
    // Southward from the centre, beyond the pole where need be, which is all the same to the forward.
    const double lat = Design.LatCentral - range + Step;
    const std::optional<PlanePlace> rim = Projected(lat - Step, Design.LonCentral);
    const std::optional<double> along =
        rim ? std::optional(std::hypot(rim->x, rim->y) / std::sin(range * DegToRad)) : std::nullopt;
    return IsFar(MeridianScale(lat, Design.LonCentral), scale) || IsFar(along, scale);
}

std::optional<ScaleBarPlace> OnDisc(std::optional<double> latitude) {
    if (latitude) {
        return std::fabs(*latitude - Design.LatCentral) > DegreesOf(Design.RangeSec)
                   ? std::nullopt
                   : OnCentralMeridian(*latitude, WordsOnMeridian(*latitude));
    }
    const std::optional<double> scale = MeridianScale(Design.LatCentral, Design.LonCentral);
    const bool equidistant = Design.ProjNum == ProjAzimuthalEquidistant;
    if (!scale || (!equidistant && ChangesTowardsRim(*scale))) {
        return std::nullopt;
    }
    return ScaleBarPlace{{0.0, 0.0},
                         *scale / KmPerRadian(),
                         equidistant,
                         equidistant ? "Scale from the centre" : "Scale at the centre"};
}

// ---- Metres.

/// The northing of a latitude on the map's middle easting.
std::optional<double> NorthingOf(double lat, double easting) {
    double south = Design.LatSouth;
    double north = Design.LatNorth;
    const auto at = [&](double northing) { return UtmInverse(easting, northing); };
    if (!at(south) || !at(north) || at(south)->lat > lat || at(north)->lat < lat) {
        return std::nullopt;
    }
    constexpr int halvings = 40; // of a map of thousands of kilometres to less than a millimetre
    for (int i = 0; i < halvings; ++i) {
        const double middle = (south + north) / 2.0;
        const std::optional<GlobePlace> place = at(middle);
        if (!place) {
            return std::nullopt;
        }
        (place->lat < lat ? south : north) = middle;
    }
    return (south + north) / 2.0;
}

/// Metres on the map for a metre on the spheroid, along the parallel; the series is conformal.
std::optional<double> ZoneScale(GlobePlace place) {
    const auto forward = [&](double lon) {
        Design.ProjLat = place.lat;
        Design.ProjLon = lon;
        UtmForward();
        return PlanePlace{Design.ProjLon, Design.ProjLat};
    };
    const PlanePlace before = forward(place.lon - Step);
    const PlanePlace behind = forward(place.lon + Step);
    const double sine = std::sin(place.lat * DegToRad);
    const double radius = Divide(Design.SpheroidA, SquareRoot(1.0 - Design.SpheroidE2 * sine * sine)) *
                          std::cos(place.lat * DegToRad);
    return Divide(std::hypot(behind.x - before.x, behind.y - before.y), radius * 2.0 * Step * DegToRad);
}

std::optional<ScaleBarPlace> OnZone(std::optional<double> latitude) {
    const double easting = (Design.LonZero + Design.LonSpan) / 2.0;
    const std::optional<double> northing =
        latitude ? NorthingOf(*latitude, easting) : std::optional((Design.LatSouth + Design.LatNorth) / 2.0);
    const std::optional<GlobePlace> place = northing ? UtmInverse(easting, *northing) : std::nullopt;
    if (!place || std::fabs(place->lat) > LargestLatitude) {
        return std::nullopt;
    }
    constexpr double metresPerKm = 1000.0;
    const std::optional<double> scale = ZoneScale(*place);
    return ScaleBarPlace{{easting, *northing},
                         *scale * metresPerKm,
                         true,
                         latitude ? WordsOfParallel(*latitude) : "Scale at the centre"};
}

std::optional<ScaleBarPlace> Place(std::optional<double> latitude) {
    switch (PropertiesOf(Design.ProjNum).family) {
    case ProjectionFamily::Azimuthal:
        return OnDisc(latitude);
    case ProjectionFamily::MetricGrid:
        return OnZone(latitude);
    case ProjectionFamily::None:
        return std::nullopt;
    default:
        return Design.ProjNum == ProjHammer ? OnHammer(latitude) : OnParallel(latitude);
    }
}

} // namespace

std::optional<ScaleBarPlace> PlaceOfScaleBar(std::optional<double> latitude) {
    const MapInHand map;
    try {
        std::optional<ScaleBarPlace> place = Place(latitude);
        const bool sound = place && std::isfinite(place->unitsPerKm) && place->unitsPerKm > 0.0;
        return sound ? place : std::nullopt;
    } catch (const RunTimeError&) {
        return std::nullopt; // a map without a scale
    }
}

std::string NoteOfScaleBar(std::optional<double> latitude) {
    if (const std::optional<ScaleBarPlace> place = PlaceOfScaleBar(latitude)) {
        return "The bar of this map says: " + place->words + ".";
    }
    return latitude
               ? "This map has no scale bar there: it does not reach the latitude, or the pole is too near."
               : "This map has no scale bar: the scale at its edge is too far from that at its centre. A "
                 "latitude of your choice has one.";
}

std::optional<double> DistanceUnderBar(const ScaleBarPlace& place, double km) {
    const double half = km * place.unitsPerKm / 2.0;
    const std::optional<RelativePlace> a = InverseSelect(place.at.x - half, place.at.y);
    const std::optional<RelativePlace> b = InverseSelect(place.at.x + half, place.at.y);
    if (!a || !b) {
        return std::nullopt;
    }
    const double sinLat = std::sin((b->lat - a->lat) * HalfDegToRad);
    const double sinLon = std::sin((b->lon - a->lon) * HalfDegToRad);
    const double h =
        sinLat * sinLat + std::cos(a->lat * DegToRad) * std::cos(b->lat * DegToRad) * sinLon * sinLon;
    return 2.0 * std::asin(std::min(std::sqrt(h), 1.0)) * KmPerRadian();
}

} // namespace quelmont
