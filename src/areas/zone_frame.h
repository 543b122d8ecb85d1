#pragma once

#include "areas/area_frame.h"
#include "areas/box_window.h"

namespace quelmont {

/// A map between northings and eastings of a zone.
///
/// What lies more than 89 degrees of longitude from the zone's central meridian, or within a minute of a
/// pole, is not on it: the metres that the series has for these places mean nothing.
class ZoneFrame final : public AreaFrame {
public:
    ZoneFrame();

    PlaneRing Outline() const override { return metres.Edge().Whole(); }
    void Cut(const Ring& ring, PlaneRings& rings) const override;
    double UnitsPerSecond() const override;

private:
    std::int32_t west; ///< half a circle west of the central meridian, seconds
    PlaneBox globe;    ///< what holds the map: x longitudes from there, y latitudes, seconds
    BoxWindow onGlobe;
    BoxWindow metres;
};

} // namespace quelmont
