#pragma once

#include "areas/area_frame.h"
#include "areas/box_window.h"

namespace quelmont {

/// A map between parallels and meridians.
class BoxFrame final : public AreaFrame {
public:
    BoxFrame();

    PlaneRing Outline() const override;
    void Cut(const Ring& ring, PlaneRings& rings) const override;
    double UnitsPerSecond() const override;

private:
    bool Project(const PlanePoint& place, PlanePoint& point) const;
    void Project(const PlaneRing& places, PlaneRings& rings) const;

    PlaneBox bounds; ///< x relative longitudes, y latitudes, seconds
    BoxWindow window;
};

} // namespace quelmont
