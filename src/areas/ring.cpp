#include "areas/ring.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace quelmont {

namespace {

constexpr std::int32_t Pole = 90 * SecPerDegree;
constexpr double SecToRad = DegToRad / SecPerDegree;

bool SamePlace(const RingPlace& a, const RingPlace& b, bool metres) {
    return a.lat == b.lat && (metres ? a.lon == b.lon : ShortStep(a.lon, b.lon) == 0);
}

/// Drops places that repeat the one before them.
void DropRepeats(std::vector<RingPlace>& places, bool metres) {
    const auto same = [metres](const RingPlace& a, const RingPlace& b) { return SamePlace(a, b, metres); };
    places.erase(std::unique(places.begin(), places.end(), same), places.end());
    while (places.size() > 1 && SamePlace(places.front(), places.back(), metres)) {
        places.pop_back();
    }
}

/// Has longitudes go on beyond the 180th meridian. The step that closes the line ends so far from its
/// beginning; false when they go too far for 32 bits.
bool Unroll(std::vector<RingPlace>& places, std::int64_t& beyond) {
    std::int64_t lon = places.front().lon;
    const std::int64_t first = lon;
    for (std::size_t i = 1; i <= places.size(); ++i) {
        const std::int64_t next = i < places.size() ? places[i].lon : first;
        lon += ShortStep(lon, next);
        if (std::abs(lon) > std::numeric_limits<std::int32_t>::max() / 4) {
            return false;
        }
        if (i < places.size()) {
            places[i].lon = static_cast<std::int32_t>(lon);
        }
    }
    beyond = lon - first;
    return true;
}

void FindBox(Ring& ring) {
    const auto [south, north] = std::minmax_element(
        ring.places.begin(), ring.places.end(), [](const auto& a, const auto& b) { return a.lat < b.lat; });
    const auto [west, east] = std::minmax_element(ring.places.begin(), ring.places.end(),
                                                  [](const auto& a, const auto& b) { return a.lon < b.lon; });
    ring.south = south->lat;
    ring.north = north->lat;
    ring.west = west->lon;
    ring.east = east->lon;
}

/// The area between the line and the equator, eastward steps counted above 0: the longitudes are widths, and
/// the heights those of a cylinder of equal area.
double AreaAboveEquator(const Ring& ring) {
    const auto height = [&](const RingPlace& place) {
        return ring.metres ? static_cast<double>(place.lat) : std::sin(place.lat * SecToRad) / SecToRad;
    };
    double area = 0.0;
    double before = height(ring.places.back());
    std::int64_t lon =
        static_cast<std::int64_t>(ring.places.back().lon) - std::int64_t{ring.turns} * SecPerCircle;
    for (const RingPlace& place : ring.places) {
        const double here = height(place);
        area += static_cast<double>(place.lon - lon) * (before + here) / 2.0;
        before = here;
        lon = place.lon;
    }
    return area;
}

void FindInside(Ring& ring) {
    const double above = AreaAboveEquator(ring);
    if (ring.turns == 0) {
        ring.size = std::fabs(above);
        return;
    }
    const double hemisphere = SecPerCircle / SecToRad;
    const double toEquator = above * ring.turns; // as if it went eastward
    ring.northInside = toEquator > 0.0;
    ring.size = hemisphere - std::fabs(toEquator);
}

} // namespace

bool MakeRing(std::vector<RingPlace> places, AreaRow row, bool metres, Ring& ring) {
    const bool beyondPole = std::any_of(places.begin(), places.end(), [](const RingPlace& place) {
        return place.lat < -Pole || place.lat > Pole;
    });
    if (!metres && beyondPole) {
        return false;
    }
    DropRepeats(places, metres);
    std::int64_t beyond = 0;
    if (places.size() < 3 || (!metres && !Unroll(places, beyond)) || std::abs(beyond) > SecPerCircle) {
        return false;
    }
    ring = Ring{};
    ring.places = std::move(places);
    ring.row = row;
    ring.metres = metres;
    ring.turns = static_cast<std::int32_t>(beyond / SecPerCircle);
    FindBox(ring);
    FindInside(ring);
    return ring.size > 0.0;
}

bool IsInside(const Ring& ring, double lat, double lon) {
    if (ring.turns == 0 && (lat < ring.south || lat > ring.north)) {
        return false;
    }
    // Edges that cross the meridian north of the place are counted.
    bool odd = false;
    const double period = ring.Period();
    const double closingLon = static_cast<double>(ring.places.front().lon) + ring.turns * period;
    const double low = std::min(static_cast<double>(ring.west), closingLon);
    const double high = std::max(static_cast<double>(ring.east), closingLon);
    double at = period == 0.0 ? lon : lon + std::ceil((low - lon) / period) * period;
    if (lat <= ring.north) {
        while (at <= high) {
            double lonBefore = ring.places.front().lon;
            double latBefore = ring.places.front().lat;
            for (std::size_t i = 1; i <= ring.places.size(); ++i) {
                const bool closes = i == ring.places.size();
                const double lonHere = closes ? closingLon : ring.places[i].lon;
                const double latHere = closes ? ring.places.front().lat : ring.places[i].lat;
                if ((lonBefore <= at) != (lonHere <= at) &&
                    latBefore + (at - lonBefore) / (lonHere - lonBefore) * (latHere - latBefore) > lat) {
                    odd = !odd;
                }
                lonBefore = lonHere;
                latBefore = latHere;
            }
            if (period == 0.0) {
                break;
            }
            at += period;
        }
    }
    return odd != ring.northInside;
}

} // namespace quelmont
