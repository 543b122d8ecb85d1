#include "surround/outline_ends.h"

#include "core/map_design.h"
#include "projection/project_select.h"
#include "projection/projection_table.h"

#include <algorithm>
#include <cmath>

namespace quelmont {

namespace {

/// Neighbours of a point from which a direction is taken: shares of the map's height and width.
constexpr double NeighbourShare = 1e-3;
/// Shares of the map's width below which a length counts as none.
constexpr double NoLength = 1e-9;
/// A point that lies on the circle by a rounding.
constexpr double RimSlack = 1e-9;
/// Meridians run together there, degrees.
constexpr double NearPole = 89.9999;
/// The rim of the whole globe is a point; lines are followed up to so near to it, degrees.
constexpr double BeforeAntipode = 1e-3;
/// Places that are tried along one line.
constexpr std::size_t MostSpots = 48;
/// So far from the equator meridians run together too much for labels between them, degrees.
constexpr double HighLatitude = 55.0;

double MapWidth() { return Design.MapXMax - Design.MapXMin; }
double LatStep() { return (Design.LatNorth - Design.LatSouth) * NeighbourShare; }
double LonStep() { return (Design.LonSpan - Design.LonZero) * NeighbourShare; }

PlanePlace Difference(PlanePlace a, PlanePlace b) { return {a.x - b.x, a.y - b.y}; }
double Length(PlanePlace a) { return std::hypot(a.x, a.y); }
double Dot(PlanePlace a, PlanePlace b) { return a.x * b.x + a.y * b.y; }
bool IsNothing(PlanePlace a) { return !(Length(a) > NoLength * MapWidth()); }

/// A spot at p whose vector is v made a unit.
LabelSpot SpotAt(PlanePlace p, PlanePlace v) {
    const double length = Length(v);
    return {.x = p.x, .y = p.y, .alongX = v.x / length, .alongY = v.y / length};
}

/// Curvature of the line through three neighbours towards a unit vector.
double BendTowards(PlanePlace before, PlanePlace p, PlanePlace after, PlanePlace unit) {
    const double half = Length(Difference(after, before)) / 2.0;
    const PlanePlace second{before.x + after.x - 2.0 * p.x, before.y + after.y - 2.0 * p.y};
    return Dot(second, unit) / (half * half);
}

/// The end of a line on the outline: p, its neighbours on the outline, and a point of the line inside.
std::optional<LabelSpot> EndSpot(std::optional<PlanePlace> p, std::optional<PlanePlace> before,
                                 std::optional<PlanePlace> after, std::optional<PlanePlace> inside) {
    if (!p || !before || !after || !inside) {
        return std::nullopt;
    }
    const PlanePlace along = Difference(*after, *before);
    const PlanePlace outward = Difference(*p, *inside);
    if (IsNothing(along) || IsNothing(outward)) {
        return std::nullopt;
    }
    PlanePlace normal{along.y, -along.x};
    if (Dot(normal, outward) < 0.0) {
        normal = {-normal.x, -normal.y};
    }
    LabelSpot spot = SpotAt(*p, normal);
    const bool corner = IsNothing(Difference(*after, *p)) || IsNothing(Difference(*before, *p));
    spot.bend = corner ? 0.0 : BendTowards(*before, *p, *after, {spot.alongX, spot.alongY});
    return spot;
}

void Append(std::vector<LabelSpot>& spots, const std::optional<LabelSpot>& spot) {
    if (spot) {
        spots.push_back(*spot);
    }
}

double Within(double low, double value, double high) { return std::max(low, std::min(value, high)); }

bool ParallelIsPoint(double lat) {
    const auto west = PlaceOnPlane(lat, Design.LonZero);
    const auto near = PlaceOnPlane(lat, Design.LonZero + LonStep());
    return west && near && IsNothing(Difference(*near, *west));
}

/// The label of a pole stands before it, away from the map.
std::vector<LabelSpot> EndAtPole(double lat) {
    const auto pole = PlaceOnPlane(lat, Design.LonCentral);
    const auto inside =
        PlaceOnPlane(lat > Design.LatSouth ? lat - LatStep() : lat + LatStep(), Design.LonCentral);
    if (!pole || !inside || IsNothing(Difference(*pole, *inside))) {
        return {};
    }
    return {SpotAt(*pole, Difference(*pole, *inside))};
}

// ---- The circle of an azimuthal map.

double RimDegrees() {
    return std::min(static_cast<double>(Design.RangeSec) / SecPerDegree, 180.0 - BeforeAntipode);
}

/// A point of the rim in the direction in which a place is seen from the centre; dLon counts from the
/// central meridian. Degrees.
LabelSpot RimSpot(double lat, double dLon) {
    const double phi = lat * DegToRad;
    const double lambda = dLon * DegToRad;
    const double east = std::cos(phi) * std::sin(lambda);
    const double north =
        Design.CosLatCentral * std::sin(phi) - Design.SinLatCentral * std::cos(phi) * std::cos(lambda);
    const double length = std::hypot(east, north);
    LabelSpot spot{.alongX = east / length, .alongY = north / length};
    spot.x = Design.MapXMax * spot.alongX;
    spot.y = Design.MapXMax * spot.alongY;
    spot.bend = -1.0 / Design.MapXMax;
    return spot;
}

// ---- Places along a line.

/// Middles of the cells between lines, the nearest to a preferred place first.
std::vector<double> Middles(double low, double spacing, std::int32_t count, double preferred) {
    // Of a dense grid only the cells about that place.
    const auto most = static_cast<std::int32_t>(MostSpots);
    const double nearest = std::floor((preferred - low) / spacing);
    const double last = std::max<double>(count - most, 0.0);
    const double first = Within(0.0, nearest - most / 2.0, last);
    std::vector<double> middles;
    middles.reserve(MostSpots);
    for (std::int32_t i = 0; i < std::min(count, most); ++i) {
        middles.push_back(low + (first + i + 0.5) * spacing);
    }
    std::stable_sort(middles.begin(), middles.end(),
                     [&](double a, double b) { return std::fabs(a - preferred) < std::fabs(b - preferred); });
    return middles;
}

std::optional<LabelSpot> SpotOnLine(std::optional<PlanePlace> before, std::optional<PlanePlace> p,
                                    std::optional<PlanePlace> after) {
    if (!before || !p || !after || IsNothing(Difference(*after, *before))) {
        return std::nullopt;
    }
    LabelSpot spot = SpotAt(*p, Difference(*after, *before));
    spot.bend = BendTowards(*before, *p, *after, {-spot.alongY, spot.alongX});
    return spot;
}

/// Where meridians have their labels: just above the equator, or above the middle of a map without it.
double PreferredLatitude() {
    const double quarter = Design.LatGrid / 4.0;
    if (IsAzimuthal(Design.ProjNum)) {
        return Within(-HighLatitude, Design.LatCentral, HighLatitude);
    }
    // Every lobe ends at the equator.
    const bool hasEquator = Design.ProjNum == ProjInterruptedMollweide ||
                            (Design.LatSouth < 0.0 && Design.LatNorth > 0.0 && Design.ProjNum != ProjUtm);
    return (hasEquator ? 0.0 : (Design.LatSouth + Design.LatNorth) / 2.0) + quarter;
}

} // namespace

std::optional<PlanePlace> PlaceOnPlane(double lat, double lon) {
    Design.ProjLat = lat;
    Design.ProjLon = lon;
    Design.ProjTestMode = TestNone;
    ProjectSelect();
    if (Design.ProjOffMap || !std::isfinite(Design.ProjX) || !std::isfinite(Design.ProjY)) {
        return std::nullopt;
    }
    if (IsAzimuthal(Design.ProjNum) &&
        std::hypot(Design.ProjX, Design.ProjY) > Design.MapXMax * (1.0 + RimSlack)) {
        return std::nullopt;
    }
    return PlanePlace{Design.ProjX, Design.ProjY};
}

std::vector<LabelSpot> EndsOfParallel(double lat) {
    if (ParallelIsPoint(lat)) {
        return EndAtPole(lat);
    }
    std::vector<LabelSpot> spots;
    const double south = std::max(lat - LatStep(), Design.LatSouth);
    const double north = std::min(lat + LatStep(), Design.LatNorth);
    const auto add = [&](double edge, double inside) {
        Append(spots, EndSpot(PlaceOnPlane(lat, edge), PlaceOnPlane(south, edge), PlaceOnPlane(north, edge),
                              PlaceOnPlane(lat, inside)));
    };
    add(Design.LonZero, Design.LonZero + LonStep());
    add(Design.LonSpan, Design.LonSpan - LonStep());
    return spots;
}

std::vector<LabelSpot> EndsOfMeridian(double lon, bool cutByEquator) {
    std::vector<LabelSpot> spots;
    const double west = std::max(lon - LonStep(), Design.LonZero);
    const double east = std::min(lon + LonStep(), Design.LonSpan);
    const auto add = [&](double edge, double inside) {
        if (!cutByEquator || edge != 0.0) {
            Append(spots, EndSpot(PlaceOnPlane(edge, lon), PlaceOnPlane(edge, west), PlaceOnPlane(edge, east),
                                  PlaceOnPlane(inside, lon)));
        }
    };
    add(Design.LatSouth, Design.LatSouth + LatStep());
    add(Design.LatNorth, Design.LatNorth - LatStep());
    return spots;
}

std::vector<LabelSpot> RimEndsOfParallel(double lat) {
    const double phi = lat * DegToRad;
    const double cosRim = std::cos(RimDegrees() * DegToRad);
    const double height = std::sin(phi) * Design.SinLatCentral;
    if (std::fabs(lat) == 90.0) {
        const bool onRim = std::fabs(cosRim - height) < RimSlack && std::fabs(Design.LatCentral) != 90.0;
        return onRim ? std::vector{RimSpot(lat, 0.0)} : std::vector<LabelSpot>{};
    }
    // Spherical law of cosines: the place where the distance from the centre is the range.
    const double across = std::cos(phi) * Design.CosLatCentral;
    const double cosLambda = across == 0.0 ? 2.0 : (cosRim - height) / across;
    if (std::fabs(Design.LatCentral) == 90.0 || std::fabs(cosLambda) >= 1.0) {
        return {};
    }
    const double lambda = std::acos(cosLambda) / DegToRad;
    return {RimSpot(lat, -lambda), RimSpot(lat, lambda)};
}

std::vector<LabelSpot> RimEndsOfMeridian(double lon) {
    const double dLon = lon - Design.LonCentral;
    const double cosRim = std::cos(RimDegrees() * DegToRad);
    // The distance's cosine along the meridian is one wave of the latitude.
    const double a = Design.SinLatCentral;
    const double b = Design.CosLatCentral * std::cos(dLon * DegToRad);
    const double height = std::hypot(a, b);
    if (!(std::fabs(cosRim) < height) || height < RimSlack) {
        return {}; // it does not reach the circle, or is the circle
    }
    const double top = std::atan2(a, b);
    const double away = std::acos(cosRim / height);
    std::vector<LabelSpot> spots;
    for (const double phi : {top + away, top - away}) {
        const double lat = std::remainder(phi / DegToRad, 360.0);
        if (std::fabs(lat) < NearPole) {
            spots.push_back(RimSpot(lat, dLon));
        }
    }
    return spots;
}

std::vector<LabelSpot> SpotsAlongParallel(double lat) {
    const double d = LonStep() / 2.0;
    std::vector<LabelSpot> spots;
    for (const double lon : Middles(Design.LonZero, Design.LonGrid, Design.LonGridCount,
                                    Design.LonCentral + Design.LonGrid / 4.0)) {
        Append(spots,
               SpotOnLine(PlaceOnPlane(lat, lon - d), PlaceOnPlane(lat, lon), PlaceOnPlane(lat, lon + d)));
    }
    return spots;
}

std::vector<LabelSpot> SpotsAlongMeridian(double lon) {
    const double d = LatStep() / 2.0;
    std::vector<LabelSpot> spots;
    for (const double lat :
         Middles(Design.LatSouth, Design.LatGrid, Design.LatGridCount, PreferredLatitude())) {
        const double south = std::max(lat - d, Design.LatSouth);
        const double north = std::min(lat + d, Design.LatNorth);
        Append(spots, SpotOnLine(PlaceOnPlane(south, lon), PlaceOnPlane(lat, lon), PlaceOnPlane(north, lon)));
    }
    return spots;
}

} // namespace quelmont
