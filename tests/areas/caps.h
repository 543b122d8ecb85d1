#pragma once

#include "areas/area_row.h"

#include <string>
#include <vector>

namespace quelmont {

/// What lies within a distance of a place, degrees: an area whose inside and size are known without a map.
struct Cap {
    double lat, lon, radius;
    bool Holds(double atLat, double atLon) const;
    /// Share of the globe.
    double Share() const;
};

/// Land with a lake and an island in it, across the 180th meridian; land about the South Pole; land beside
/// the North Pole; land on the equator. None touches another.
namespace caps {
constexpr Cap Pacific{10.0, 175.0, 30.0};
constexpr Cap Lake{15.0, -178.0, 10.0};
constexpr Cap Island{15.0, -178.0, 4.0};
constexpr Cap Antarctica{-80.0, 40.0, 25.0};
constexpr Cap Greenland{65.0, -60.0, 15.0};
constexpr Cap Africa{0.0, 0.0, 20.0};
} // namespace caps

/// What there is at a place of the world of caps.
AreaClass ClassAt(double lat, double lon);
/// The share of the globe that is land there.
double LandShare();

/// The line round a cap as lines of a .prn file, from one bearing to another, degrees; the first begins a
/// line.
std::string CapLine(const Cap& cap, int from = 0, int to = 360);
/// A .prn file of that world.
std::string WorldOfCaps();

} // namespace quelmont
