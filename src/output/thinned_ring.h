#pragma once

#include "output/area_rings.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quelmont {

/// Whether the way from a to c goes through b without a turn.
template <typename Point>
bool IsStraight(const Point& a, const Point& b, const Point& c) {
    const std::int64_t abX = static_cast<std::int64_t>(b.x) - a.x;
    const std::int64_t abY = static_cast<std::int64_t>(b.y) - a.y;
    const std::int64_t bcX = static_cast<std::int64_t>(c.x) - b.x;
    const std::int64_t bcY = static_cast<std::int64_t>(c.y) - b.y;
    return abX * bcY == abY * bcX && abX * bcX + abY * bcY >= 0;
}

/// Puts a ring on a device, by onDevice, which gives whole coordinates, behind the points of others, and its
/// count behind theirs. Points that repeat the one before and those on a straight line are left out; a ring
/// of which fewer than three are left is left out whole.
template <typename Point, typename OnDevice>
void AppendThinned(const PlaneRing& ring, OnDevice&& onDevice, std::vector<Point>& points,
                   std::vector<std::int32_t>& counts) {
    const std::size_t begin = points.size();
    for (const PlanePoint& place : ring) {
        const Point point = onDevice(place);
        while (points.size() >= begin + 2 &&
               IsStraight(points[points.size() - 2], points[points.size() - 1], point)) {
            points.pop_back();
        }
        if (points.size() == begin || points.back().x != point.x || points.back().y != point.y) {
            points.push_back(point);
        }
    }
    while (points.size() > begin + 1 && points.back().x == points[begin].x &&
           points.back().y == points[begin].y) {
        points.pop_back();
    }
    if (points.size() < begin + 3) {
        points.resize(begin);
    } else {
        counts.push_back(static_cast<std::int32_t>(points.size() - begin));
    }
}

} // namespace quelmont
