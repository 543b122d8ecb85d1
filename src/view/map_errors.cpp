#include "view/map_errors.h"

#include "areas/distortion.h"
#include "core/coordinates.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "graticule/lobes.h"
#include "projection/projection_table.h"
#include "view/moved_centre.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <vector>

namespace quelmont {

namespace {

constexpr double Pole = 90.0;
constexpr double FullCircle = 360.0;
/// Places in a row from one side of a region to the other, less one.
constexpr int Steps = 24;
/// Where a map of the whole globe tears about the antipode of its centre, degrees: half a step from there.
constexpr double NearAntipode = 2.0 * Pole - 3.75;
/// Places on a bound belong to the map, degrees.
constexpr double Slack = 1e-9;

/// A latitude of the lattice between two; half a step inside them in place of a pole.
double LatitudeOfStep(double south, double north, int step) {
    const double height = (north - south) / Steps;
    const double lat = south + height * step;
    return std::fabs(lat) < Pole - Slack ? lat : std::copysign(Pole - height / 2.0, lat);
}

/// Source: Snyder 1987, eq. 5-5 and 5-6.
GlobePlace PlaceSeenAt(const GlobePlace& centre, double distance, double azimuth) {
    const double c = distance * DegToRad;
    const double az = azimuth * DegToRad;
    const double lat = centre.lat * DegToRad;
    const double sine = std::sin(lat) * std::cos(c) + std::cos(lat) * std::sin(c) * std::cos(az);
    const double east = std::sin(c) * std::sin(az);
    const double north = std::cos(lat) * std::cos(c) - std::sin(lat) * std::sin(c) * std::cos(az);
    return {InDegrees(std::asin(std::clamp(sine, -1.0, 1.0))),
            centre.lon + InDegrees(std::atan2(east, north))};
}

/// A lattice over what the map shows of the region.
std::vector<GlobePlace> PlacesOf(const MapRegion& region) {
    std::vector<GlobePlace> places;
    const bool bounded = !IsAzimuthal(Design.ProjNum) && Design.ProjNum != ProjUtm;
    const double south = bounded ? std::max(region.south, Design.LatSouth) : region.south;
    const double north = bounded ? std::min(region.north, Design.LatNorth) : region.north;
    for (int i = 0; i <= Steps; ++i) {
        for (int j = 0; j <= Steps; ++j) {
            const double share = static_cast<double>(j) / Steps;
            if (region.isRound && !IsWholeWorld(region)) {
                // Rings about the centre; 0 would be one place again and again.
                const double distance = region.radius * std::max(i, 1) / Steps;
                places.push_back(PlaceSeenAt(region.centre, distance, share * FullCircle));
            } else {
                places.push_back({LatitudeOfStep(south, north, i), region.west + share * region.span});
            }
        }
    }
    return places;
}

/// The relative longitude of a true one.
double RelativeOf(double lon) {
    double relative = std::fmod(lon - Design.LonWest, FullCircle);
    relative += relative < 0.0 ? FullCircle : 0.0;
    return relative > FullCircle - Slack ? 0.0 : relative;
}

bool IsOnMap(const GlobePlace& place) {
    if (IsAzimuthal(Design.ProjNum)) {
        const GlobePlace centre{Design.LatCentral, Design.LonMiddle};
        return SeenFrom(centre, place).distance <= std::min(DegreesOf(Design.RangeSec) + Slack, NearAntipode);
    }
    return Design.ProjNum == ProjUtm ||
           (place.lat >= Design.LatSouth - Slack && place.lat <= Design.LatNorth + Slack &&
            RelativeOf(place.lon) <= Design.LonSpan + Slack);
}

void TakeErrorsAt(const GlobePlace& place, MapErrors& largest) {
    if (!IsOnMap(place)) {
        return;
    }
    // A zone knows no turns of longitude.
    const double lon = Design.ProjNum == ProjUtm
                           ? Design.LonCentral + std::remainder(place.lon - Design.LonCentral, FullCircle)
                           : RelativeOf(place.lon);
    const auto distortion = DistortionAt(place.lat, lon);
    if (!distortion || !(distortion->area > 0.0)) {
        return;
    }
    if (std::fabs(std::log(distortion->area)) > std::fabs(std::log1p(largest.area))) {
        largest.area = distortion->area - 1.0;
    }
    largest.angle = std::max(largest.angle, distortion->angle);
}

} // namespace

MapErrors LargestErrors(const MapRegion& region) {
    MapErrors largest;
    const bool interrupted = Design.ProjNum == ProjInterruptedMollweide;
    for (const std::int16_t lobe : interrupted ? LobesWithHeight() : std::vector<std::int16_t>{0}) {
        if (interrupted) {
            CalcGraticuleInterrupt(lobe);
        }
        for (const GlobePlace& place : PlacesOf(region)) {
            TakeErrorsAt(place, largest);
        }
    }
    return largest;
}

} // namespace quelmont
