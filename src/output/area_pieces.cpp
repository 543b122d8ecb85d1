#include "output/area_pieces.h"

#include "core/map_design.h"
#include "core/rounding.h"
#include "output/thinned_ring.h"

#include <algorithm>
#include <utility>

namespace quelmont {

namespace {

double Coordinate(const PlanePoint& point, bool alongY) { return alongY ? point.y : point.x; }

/// What lies of a closed line on one side of a straight cut; along the cut it may run to and fro, which
/// bounds nothing (Sutherland and Hodgman 1974).
PlaneRing HalfOf(const PlaneRing& ring, bool alongY, double cut, bool upper) {
    const auto inside = [&](const PlanePoint& p) { return (Coordinate(p, alongY) >= cut) == upper; };
    PlaneRing half;
    PlanePoint before = ring.back();
    for (const PlanePoint& point : ring) {
        if (inside(before) != inside(point)) {
            const double share =
                (cut - Coordinate(before, alongY)) / (Coordinate(point, alongY) - Coordinate(before, alongY));
            PlanePoint crossing = {before.x + share * (point.x - before.x),
                                   before.y + share * (point.y - before.y)};
            (alongY ? crossing.y : crossing.x) = cut;
            half.push_back(crossing);
        }
        if (inside(point)) {
            half.push_back(point);
        }
        before = point;
    }
    return half;
}

AreaPiece PieceOf(const PlaneRings& rings) {
    AreaPiece piece;
    const auto onPlane = [](const PlanePoint& point) -> LogicalPoint {
        return {RoundToInt16(point.x), RoundToInt16(point.y)};
    };
    for (const PlaneRing& ring : rings) {
        AppendThinned(ring, onPlane, piece.points, piece.counts);
    }
    return piece;
}

void Halve(const PlaneRings& rings, std::size_t mostPoints,
           const std::function<void(const AreaPiece&)>& take) {
    const AreaPiece piece = PieceOf(rings);
    if (piece.points.size() <= mostPoints) {
        if (!piece.counts.empty()) {
            take(piece);
        }
        return;
    }
    const auto [west, east] =
        std::minmax_element(piece.points.begin(), piece.points.end(),
                            [](const LogicalPoint& a, const LogicalPoint& b) { return a.x < b.x; });
    const auto [south, north] =
        std::minmax_element(piece.points.begin(), piece.points.end(),
                            [](const LogicalPoint& a, const LogicalPoint& b) { return a.y < b.y; });
    if (east->x - west->x <= 1 && north->y - south->y <= 1) {
        return; // no larger than a point, however many it has
    }
    const bool alongY = north->y - south->y > east->x - west->x;
    const double cut = alongY ? (south->y + north->y) / 2.0 : (west->x + east->x) / 2.0;
    for (const bool upper : {false, true}) {
        PlaneRings half;
        for (const PlaneRing& ring : rings) {
            if (PlaneRing part = HalfOf(ring, alongY, cut, upper); part.size() > 2) {
                half.push_back(std::move(part));
            }
        }
        Halve(half, mostPoints, take);
    }
}

} // namespace

void ForEachPiece(const PlaneRings& rings, std::size_t mostPoints,
                  const std::function<void(const AreaPiece&)>& take) {
    PlaneRings logical;
    for (const PlaneRing& ring : rings) {
        PlaneRing scaled;
        scaled.reserve(ring.size());
        for (const PlanePoint& point : ring) {
            scaled.push_back({(point.x - Design.MapXMin) * Design.LogicalScale + Design.LogicalOriginX,
                              (point.y - Design.MapYMin) * Design.LogicalScale + Design.LogicalOriginY});
        }
        if (!scaled.empty()) {
            logical.push_back(std::move(scaled));
        }
    }
    Halve(logical, mostPoints, take);
}

} // namespace quelmont
