#include "areas/box_window.h"

#include <algorithm>
#include <cstddef>

namespace quelmont {

namespace {

constexpr unsigned BeyondWest = 1, BeyondEast = 2, BeyondSouth = 4, BeyondNorth = 8;

/// The part of a segment that lies before one line and behind another (Liang and Barsky 1984).
struct Part {
    double from = 0.0, to = 1.0;

    /// What is left where start + t * step >= 0.
    void Keep(double start, double step) {
        if (step == 0.0) {
            to = start < 0.0 ? -1.0 : to;
        } else if (step > 0.0) {
            from = std::max(from, -start / step);
        } else {
            to = std::min(to, -start / step);
        }
    }
};

} // namespace

BoxWindow::BoxWindow(const PlaneBox& box_, int piecesOfSide) : box(box_) {
    const double width = box.east - box.west;
    const double height = box.north - box.south;
    double side = 0.0;
    for (const double length : {width, height, width, height}) {
        for (int piece = 0; piece < piecesOfSide; ++piece) {
            edge.stops.push_back(side + length * piece / piecesOfSide);
        }
        side += length;
    }
    edge.length = side;
    edge.at = [b = box_, width, height](double place) -> PlanePoint {
        if (place < width) {
            return {b.west + place, b.south};
        }
        if (place < width + height) {
            return {b.east, b.south + (place - width)};
        }
        if (place < width + height + width) {
            return {b.east - (place - width - height), b.north};
        }
        return {b.west, b.north - (place - width - height - width)};
    };
}

unsigned BoxWindow::SidesBeyond(const PlanePoint& p) const {
    return (p.x <= box.west ? BeyondWest : 0U) | (p.x >= box.east ? BeyondEast : 0U) |
           (p.y <= box.south ? BeyondSouth : 0U) | (p.y >= box.north ? BeyondNorth : 0U);
}

/// The part of a segment inside the box; false if there is none.
bool BoxWindow::CutSegment(const PlanePoint& a, const PlanePoint& b, PlanePoint& enter,
                           PlanePoint& leave) const {
    const double dx = b.x - a.x;
    const double dy = b.y - a.y;
    Part part;
    part.Keep(a.x - box.west, dx);
    part.Keep(box.east - a.x, -dx);
    part.Keep(a.y - box.south, dy);
    part.Keep(box.north - a.y, -dy);
    if (!(part.from < part.to)) {
        return false;
    }
    const auto at = [&](double t) -> PlanePoint {
        return {std::clamp(a.x + t * dx, box.west, box.east), std::clamp(a.y + t * dy, box.south, box.north)};
    };
    enter = at(part.from);
    leave = at(part.to);
    return true;
}

/// Of a point on the edge, or beside it by a rounding: the place on the nearest side.
double BoxWindow::PlaceOf(const PlanePoint& p) const {
    const double width = box.east - box.west;
    const double height = box.north - box.south;
    const double toSouth = p.y - box.south;
    const double toEast = box.east - p.x;
    const double toNorth = box.north - p.y;
    const double toWest = p.x - box.west;
    const double nearest = std::min({toSouth, toEast, toNorth, toWest});
    double place = 0.0;
    if (toSouth == nearest) {
        place = toWest;
    } else if (toEast == nearest) {
        place = width + toSouth;
    } else if (toNorth == nearest) {
        place = width + height + toEast;
    } else {
        place = width + height + width + toNorth;
    }
    return place >= edge.length ? place - edge.length : place;
}

void BoxWindow::Cut(const PlaneRing& ring, PlaneRings& rings) const {
    const auto outside =
        std::find_if(ring.begin(), ring.end(), [&](const PlanePoint& p) { return !Holds(p); });
    if (outside == ring.end()) {
        rings.push_back(ring);
        return;
    }
    const auto first = static_cast<std::size_t>(outside - ring.begin());
    std::vector<InsideChain> chains;
    PlanePoint a = ring[first];
    unsigned beyondA = SidesBeyond(a);
    for (std::size_t i = 1; i <= ring.size(); ++i) {
        const PlanePoint b = ring[(first + i) % ring.size()];
        const unsigned beyondB = SidesBeyond(b);
        PlanePoint enter = b; // where a rounding leaves nothing between
        PlanePoint leave = a;
        if (beyondA == 0 && beyondB == 0) {
            chains.back().points.push_back(b);
        } else if ((beyondA & beyondB) == 0 &&
                   (CutSegment(a, b, enter, leave) || beyondA == 0 || beyondB == 0)) {
            if (beyondA != 0) {
                chains.push_back({{enter}, PlaceOf(enter), 0.0});
            }
            chains.back().points.push_back(beyondB == 0 ? b : leave);
            if (beyondB != 0) {
                chains.back().to = PlaceOf(leave);
            }
        }
        a = b;
        beyondA = beyondB;
    }
    CloseAlongEdge(
        chains, edge, [&](double place) { return IsInside(ring, edge.at(place)); }, rings);
}

bool IsInside(const PlaneRing& ring, const PlanePoint& p) {
    bool odd = false;
    PlanePoint a = ring.back();
    for (const PlanePoint& b : ring) {
        if ((a.x <= p.x) != (b.x <= p.x) && a.y + (p.x - a.x) / (b.x - a.x) * (b.y - a.y) > p.y) {
            odd = !odd;
        }
        a = b;
    }
    return odd;
}

} // namespace quelmont
