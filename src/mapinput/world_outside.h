#pragma once

#include <cmath>
#include <cstdint>

namespace quelmont {

/// Tells points of an .mps file that certainly lie outside a map bounded by parallels and meridians. A
/// world's file has ten times as many of them as of those inside, and nothing has to be known of them but
/// their number and the last one.
class WorldOutside {
public:
    /// Seconds of arc: the bounds as MapPoint::TestBounds compares them, west a true longitude.
    WorldOutside(std::int32_t north, std::int32_t south, std::int32_t west, std::int32_t span)
        : latMiddle(static_cast<float>((static_cast<double>(north) + south) / 7200.0)),
          latReach(static_cast<float>((static_cast<double>(north) - south) / 7200.0) + Margin),
          lonWest(static_cast<float>(west / 3600.0)), lonReach(static_cast<float>(span / 3600.0) + Margin) {}

    /// Whether a point in degrees is outside for certain. False where that is not quickly decided: near the
    /// bounds, and for what is no place on the earth.
    bool Holds(float lat, float lon) const {
        if (!(std::fabs(lat) < MaxLat) || !(std::fabs(lon) < MaxLon)) {
            return false;
        }
        return std::fabs(lat - latMiddle) > latReach || FarFromMeridians(lon);
    }

private:
    static constexpr float Margin = 2.0F / 3600.0F; ///< more than seconds and floats are rounded by
    // What is no latitude, the marker included, and no longitude.
    static constexpr float MaxLat = 98.0F;
    static constexpr float MaxLon = 500.0F;

    bool FarFromMeridians(float lon) const {
        const float turned = lon > 180.0F ? lon - 360.0F : lon;
        const float east = turned - lonWest;
        const float relative = east < 0.0F ? east + 360.0F : east;
        return relative > lonReach && relative < 360.0F - Margin;
    }

    float latMiddle, latReach; ///< degrees
    float lonWest, lonReach;
};

} // namespace quelmont
