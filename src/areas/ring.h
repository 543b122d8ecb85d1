#pragma once

#include "areas/area_row.h"
#include "core/coordinates.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quelmont {

/// A place on the globe in seconds of arc; of a file in metres northing and easting.
struct RingPlace {
    std::int32_t lat = 0, lon = 0;
    bool operator==(const RingPlace&) const = default;
};

/// A closed line on the globe, straight in latitude and longitude between its places. Which of its sides is
/// its inside does not hang on its direction: it is the one without a pole, and of a line round the axis
/// the smaller one.
struct Ring {
    /// From each place to the next, and from the last to the first, the way is the short one; longitudes go
    /// on beyond the 180th meridian.
    std::vector<RingPlace> places;
    AreaRow row = AreaRow::None;
    /// How often it goes round the axis eastward: 0, or 1 or -1 for a line with a pole inside.
    std::int32_t turns = 0;
    bool northInside = false; ///< the pole that is inside, if one is
    bool metres = false;      ///< its places are in metres and nothing turns
    // The box of its places, longitudes as they go on.
    std::int32_t south = 0, north = 0, west = 0, east = 0;
    double size = 0.0; ///< of its inside, square seconds on a cylinder of equal area

    /// After how many units longitudes come again; 0 for none.
    std::int32_t Period() const { return metres ? 0 : SecPerCircle; }
};

/// The line through these places, the last of which may be the first again. Nothing for what bounds no area:
/// fewer than three places, a latitude beyond a pole, more than one turn round the axis.
bool MakeRing(std::vector<RingPlace> places, AreaRow row, bool metres, Ring& ring);

/// Whether a place lies inside, lat and lon as in RingPlace, the longitude any of those that it has.
bool IsInside(const Ring& ring, double lat, double lon);

/// The step of longitude from one place to another the short way, -180 to 180 degrees.
constexpr std::int64_t ShortStep(std::int64_t from, std::int64_t to) {
    std::int64_t step = (to - from) % SecPerCircle;
    if (step > SecPerHalfCircle) {
        step -= SecPerCircle;
    } else if (step < -SecPerHalfCircle) {
        step += SecPerCircle;
    }
    return step;
}

} // namespace quelmont
