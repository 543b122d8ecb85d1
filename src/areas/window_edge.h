#pragma once

#include "output/area_rings.h"

#include <functional>
#include <vector>

namespace quelmont {

/// The closed edge of a window that cuts areas, of a length; places on it count from 0.
struct WindowEdge {
    double length = 0.0;
    std::vector<double> stops;            ///< rising: corners, and places at which a curve may be bent
    std::function<PlanePoint(double)> at; ///< the point at a place
    /// Its points at all stops.
    PlaneRing Whole() const;
};

/// A stretch of a closed line inside a window, from one place of its edge to another.
struct InsideChain {
    PlaneRing points; ///< both ends on the edge
    double from = 0.0, to = 0.0;
};

/// Puts behind rings what closes the stretches of one closed line inside a window along the window's edge: it
/// bounds the part of the line's inside that lies in the window. A line that crosses the edge nowhere has no
/// stretches; then the whole edge bounds it, or nothing.
///
/// edgeInside tells whether a place on the edge lies inside the line. It is asked once, as far as possible
/// from where the line crosses the edge: along the edge inside and outside take turns, which a line that
/// crosses itself does not change.
void CloseAlongEdge(std::vector<InsideChain>& chains, const WindowEdge& edge,
                    const std::function<bool(double)>& edgeInside, PlaneRings& rings);

} // namespace quelmont
