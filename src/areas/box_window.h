#pragma once

#include "areas/window_edge.h"
#include "output/area_rings.h"

namespace quelmont {

/// A box of a plane, by which areas are cut. Nothing of it is curved; what its coordinates are is said by
/// whoever uses it.
struct PlaneBox {
    double west = 0.0, south = 0.0, east = 0.0, north = 0.0;
};

/// A box as a window. No point of the lines to be cut may lie on its edge.
class BoxWindow {
public:
    /// Each side has its corner and, if it will be bent, further stops: so many pieces.
    BoxWindow(const PlaneBox& box, int piecesOfSide);

    /// Puts the part of a closed line's inside that lies in the box behind rings.
    void Cut(const PlaneRing& ring, PlaneRings& rings) const;

    const WindowEdge& Edge() const { return edge; }

private:
    bool Holds(const PlanePoint& p) const {
        return p.x > box.west && p.x < box.east && p.y > box.south && p.y < box.north;
    }
    unsigned SidesBeyond(const PlanePoint& p) const;
    bool CutSegment(const PlanePoint& a, const PlanePoint& b, PlanePoint& enter, PlanePoint& leave) const;
    double PlaceOf(const PlanePoint& p) const;

    PlaneBox box;
    WindowEdge edge;
};

/// Whether a point lies inside a closed line: inside an odd number of turns.
bool IsInside(const PlaneRing& ring, const PlanePoint& p);

} // namespace quelmont
