#pragma once

#include <vector>

namespace quelmont {

/// A place in projection units.
struct PlanePoint {
    double x = 0.0, y = 0.0;
    bool operator==(const PlanePoint&) const = default;
};

/// A closed line; its first point does not stand at its end again.
using PlaneRing = std::vector<PlanePoint>;

/// Closed lines that bound an area together: what lies inside an odd number of them belongs to it.
using PlaneRings = std::vector<PlaneRing>;

} // namespace quelmont
