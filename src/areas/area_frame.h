#pragma once

#include "areas/ring.h"
#include "output/area_rings.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace quelmont {

/// The window that a map is on the globe: what cuts areas, and projects what is left of them.
///
/// A frame reads the bounds of Design when it is made, and the constants of the projection whenever it
/// projects: those of the same lobe, on the interrupted projection. It writes the point cell.
class AreaFrame {
public:
    AreaFrame() = default;
    virtual ~AreaFrame() = default;
    AreaFrame(const AreaFrame&) = delete;
    AreaFrame& operator=(const AreaFrame&) = delete;

    /// The map's outline, projection units.
    virtual PlaneRing Outline() const = 0;
    /// Puts the part of a line's inside that is on the map behind rings, projection units.
    /// RunTimeError where a place has none on the map.
    virtual void Cut(const Ring& ring, PlaneRings& rings) const = 0;
    /// The longest way in projection units that a step of a second of arc in latitude or longitude makes on
    /// the map.
    virtual double UnitsPerSecond() const = 0;

    /// Latitudes beyond which nothing is on the map, seconds.
    std::int32_t south = -90 * SecPerDegree, north = 90 * SecPerDegree;
};

/// The frame of the map, of a lobe on the interrupted projection. Null on an unknown projection.
std::unique_ptr<AreaFrame> FrameOfMap();

/// Calls use for the map, or for each of its lobes, whose bounds the design has then. They are put back.
void ForEachPartOfMap(const std::function<void()>& use);

/// So many pieces stand for a side of a map's outline that may be bent.
constexpr int PiecesOfSide = 256;

/// The place on the map of degrees as ProjectSelect takes them; false if there is none. Writes the point
/// cell.
bool ProjectPlace(double lat, double lon, PlanePoint& point);

/// A closed line on the plane of longitudes from west (x) and latitudes (y), seconds: as often as it comes
/// into the strip from low to high, each time as a line of its own. A line round the axis is closed beyond
/// its pole.
PlaneRings LaidOut(const Ring& ring, std::int32_t west, double low, double high);

} // namespace quelmont
