#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quelmont {

/// A point of a great circle.
struct GreatCirclePoint {
    double GcAzimuth = 0.0;          ///< course at the point, degrees clockwise from north
    double GcDist = 0.0;             ///< from the start, minutes of arc (nautical miles)
    double GcLat = 0.0, GcLon = 0.0; ///< degrees, south and west negative
    double GcLatRad = 0.0;           ///< radians
    double GcLonDiff = 0.0;          ///< eastward from the western end of the route, radians
};

/// A great circle between two places as a list of points. The walk by GcStep from GcFirst to GcLast goes from
/// the start to the end; the rows of a route off equator and meridians run eastward. Rows count from 1.
struct GreatCircleTable {
    std::vector<GreatCirclePoint> Rows;
    std::int16_t GcFirst = 0, GcLast = 0;
    std::int16_t GcStep = 1;

    /// Row i, counted from 1.
    const GreatCirclePoint& Row(std::int16_t i) const { return Rows[static_cast<std::size_t>(i) - 1]; }
};

/// A point of a small circle, degrees, south and west negative.
struct SmallCirclePoint {
    double ScLat = 0.0, ScLon = 0.0;
};

/// Concentric small circles, from the innermost out.
struct SmallCircleTable {
    std::vector<SmallCirclePoint> Points;
    std::vector<std::int16_t> ScRingEnd; ///< of each circle its last point, counted from 1
};

} // namespace quelmont
