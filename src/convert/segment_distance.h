#pragma once

#include "convert/map_line.h"
#include "core/coordinates.h"

#include <algorithm>
#include <cmath>

namespace quelmont {

/// Squares of distances, in degrees of latitude, from the segment between two points.
class SegmentDistance {
public:
    SegmentDistance(const LonLat& a_, const LonLat& b_) : a(a_), b(b_) {}

    double Square(const LonLat& point) const {
        // Degrees of longitude are longest at the smallest of the latitudes: nothing is dropped too early.
        const double lat = std::min({std::fabs(a.Lat), std::fabs(b.Lat), std::fabs(point.Lat)});
        const double cosine = std::cos(lat * DegToRad);
        const double dx = (b.Lon - a.Lon) * cosine;
        const double dy = b.Lat - a.Lat;
        double x = (point.Lon - a.Lon) * cosine;
        double y = point.Lat - a.Lat;
        const double length = dx * dx + dy * dy;
        if (length > 0.0) {
            const double share = std::clamp((x * dx + y * dy) / length, 0.0, 1.0);
            x -= share * dx;
            y -= share * dy;
        }
        return x * x + y * y;
    }

private:
    LonLat a, b;
};

} // namespace quelmont
