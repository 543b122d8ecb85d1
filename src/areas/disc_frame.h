#pragma once

#include "areas/area_frame.h"
#include "areas/window_edge.h"
#include "projection/project_select.h"

namespace quelmont {

/// A map bounded by a circle about its centre.
class DiscFrame final : public AreaFrame {
public:
    DiscFrame();

    PlaneRing Outline() const override { return edge.Whole(); }
    void Cut(const Ring& ring, PlaneRings& rings) const override;
    double UnitsPerSecond() const override;

private:
    class Walk;

    /// A place on the way round a line: degrees, relative longitude.
    struct Spot {
        double lat = 0.0, lon = 0.0;
        bool inside = false;
        double cosC = 0.0;
        PlanePoint point; ///< of one that is inside
    };

    Spot SpotAt(double lat, double lon) const;
    double Angle(double lat, double lon) const;
    double EdgeBetween(const Spot& inner, const Spot& outer) const;
    bool EdgeInside(const Ring& ring, double angle) const;

    double distance = 0.0; ///< of the circle from the centre, radians
    double cosDistance = 0.0;
    WindowEdge edge; ///< places are angles of the plane, radians
};

} // namespace quelmont
