#include "areas/box_frame.h"

#include "core/map_design.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace quelmont {

namespace {

/// Places are whole seconds: so much beyond the bounds none is on them.
constexpr double Beyond = 1e-4;

PlaneBox BoundsOfMap() {
    return {static_cast<double>(Design.LonZeroSec), static_cast<double>(Design.LatSouthSec),
            static_cast<double>(Design.LonSpanSec), static_cast<double>(Design.LatNorthSec)};
}

PlaneBox Widened(const PlaneBox& box) {
    return {box.west - Beyond, box.south - Beyond, box.east + Beyond, box.north + Beyond};
}

} // namespace

BoxFrame::BoxFrame() : bounds(BoundsOfMap()), window(Widened(bounds), PiecesOfSide) {
    south = Design.LatSouthSec;
    north = Design.LatNorthSec;
}

bool BoxFrame::Project(const PlanePoint& place, PlanePoint& point) const {
    return ProjectPlace(std::clamp(place.y, bounds.south, bounds.north) / SecPerDegree,
                        std::clamp(place.x, bounds.west, bounds.east) / SecPerDegree, point);
}

void BoxFrame::Project(const PlaneRing& places, PlaneRings& rings) const {
    PlaneRing projected;
    projected.reserve(places.size());
    for (const PlanePoint& place : places) {
        if (PlanePoint point; Project(place, point)) {
            projected.push_back(point);
        }
    }
    rings.push_back(std::move(projected));
}

PlaneRing BoxFrame::Outline() const {
    PlaneRings outline;
    Project(window.Edge().Whole(), outline);
    return outline.front();
}

void BoxFrame::Cut(const Ring& ring, PlaneRings& rings) const {
    if (ring.metres) {
        return;
    }
    PlaneRings cut;
    for (const PlaneRing& line : LaidOut(ring, Design.LonWestSec, bounds.west, bounds.east)) {
        window.Cut(line, cut);
    }
    for (const PlaneRing& places : cut) {
        Project(places, rings);
    }
}

double BoxFrame::UnitsPerSecond() const {
    constexpr int samples = 8;
    constexpr double step = 60.0;
    double longest = 0.0;
    for (int row = 0; row <= samples; ++row) {
        for (int column = 0; column <= samples; ++column) {
            const PlanePoint place = {bounds.west + (bounds.east - bounds.west - step) * column / samples,
                                      bounds.south + (bounds.north - bounds.south - step) * row / samples};
            PlanePoint here, eastOfIt, northOfIt;
            if (Project(place, here) && Project({place.x + step, place.y}, eastOfIt) &&
                Project({place.x, place.y + step}, northOfIt)) {
                longest = std::max({longest, std::hypot(eastOfIt.x - here.x, eastOfIt.y - here.y),
                                    std::hypot(northOfIt.x - here.x, northOfIt.y - here.y)});
            }
        }
    }
    return longest / step;
}

} // namespace quelmont
