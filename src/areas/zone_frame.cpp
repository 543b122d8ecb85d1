#include "areas/zone_frame.h"

#include "core/degrees.h"
#include "core/map_design.h"
#include "core/rounding.h"
#include "projection/inverse_utm.h"
#include "projection/utm.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace quelmont {

namespace {

constexpr double Beyond = 1e-4; ///< metres; whole ones are not on the edge then
constexpr double FarthestLon = 89.0;
constexpr double FarthestLat = 89.0 + 59.0 / 60.0;

PlaneBox BoundsInMetres() {
    return {Design.LonZero - Beyond, Design.LatSouth - Beyond, Design.LonSpan + Beyond,
            Design.LatNorth + Beyond};
}

/// A box about everything that can be on a map of a zone: degrees from the central meridian.
constexpr PlaneBox WholeZone = {-FarthestLon, -FarthestLat, FarthestLon, FarthestLat};

/// A box that holds the map, from places along its edge. A map with a pole on it has the whole zone.
PlaneBox BoxOnGlobe(const PlaneBox& map) {
    constexpr double nearPole = 85.0;
    PlaneBox box = {FarthestLon, FarthestLat, -FarthestLon, -FarthestLat};
    for (const PlanePoint& point : BoxWindow(map, 32).Edge().Whole()) {
        const std::optional<GlobePlace> place = UtmInverse(point.x, point.y);
        if (!place || std::fabs(place->lat) > nearPole) {
            return WholeZone;
        }
        const double lon = std::remainder(place->lon - Design.LonCentral, 360.0);
        box = {std::min(box.west, lon), std::min(box.south, place->lat), std::max(box.east, lon),
               std::max(box.north, place->lat)};
    }
    // Between the places on the edge it may reach a little further.
    const double more = 0.1 + 0.05 * std::max(box.east - box.west, box.north - box.south);
    return {std::max(box.west - more, WholeZone.west), std::max(box.south - more, WholeZone.south),
            std::min(box.east + more, WholeZone.east), std::min(box.north + more, WholeZone.north)};
}

/// In seconds from half a circle west of the central meridian, between whole ones.
PlaneBox InSeconds(const PlaneBox& degrees) {
    const auto between = [](double value) { return std::floor(value * SecPerDegree) + 0.5; };
    return {between(degrees.west + 180.0), between(degrees.south), between(degrees.east + 180.0),
            between(degrees.north)};
}

bool InMetres(double lat, double lon, PlanePoint& point) {
    Design.ProjLat = lat;
    Design.ProjLon = lon;
    try {
        UtmForward();
    } catch (const RunTimeError&) {
        return false;
    }
    point = {Design.ProjLon, Design.ProjLat};
    return true;
}

} // namespace

ZoneFrame::ZoneFrame()
    : west(Design.LonCentralSec - SecPerHalfCircle), globe(InSeconds(BoxOnGlobe(BoundsInMetres()))),
      onGlobe(globe, PiecesOfSide), metres(BoundsInMetres(), 1) {
    south = RoundToInt32(globe.south);
    north = RoundToInt32(globe.north);
}

void ZoneFrame::Cut(const Ring& ring, PlaneRings& rings) const {
    if (ring.metres) {
        PlaneRing line;
        for (const RingPlace& place : ring.places) {
            line.push_back({static_cast<double>(place.lon), static_cast<double>(place.lat)});
        }
        metres.Cut(line, rings);
        return;
    }
    PlaneRings cut;
    for (const PlaneRing& line : LaidOut(ring, west, globe.west, globe.east)) {
        onGlobe.Cut(line, cut);
    }
    for (const PlaneRing& places : cut) {
        PlaneRing line;
        for (const PlanePoint& place : places) {
            if (PlanePoint point; InMetres(place.y / SecPerDegree, (place.x + west) / SecPerDegree, point)) {
                line.push_back(point);
            }
        }
        if (line.size() > 2) {
            metres.Cut(line, rings);
        }
    }
}

double ZoneFrame::UnitsPerSecond() const {
    constexpr double metresPerSecond = 31.1; // at the equator and at the poles
    return metresPerSecond * std::max(1.0, std::fabs(Design.UtmK0));
}

} // namespace quelmont
