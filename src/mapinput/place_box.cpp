#include "mapinput/place_box.h"

#include "core/coordinates.h"
#include "core/map_design.h"
#include "projection/projection_table.h"
#include "projection/utm.h"

#include <optional>

namespace quelmont {

namespace {

bool LatitudesMeet(const PlaceBox& box) {
    return box.south <= Design.LatNorthSec && box.north >= Design.LatSouthSec;
}

/// Both are arcs on the circle of longitudes. That of the map begins at 0.
bool LongitudesMeet(const PlaceBox& box) {
    std::int32_t width = box.east - box.west;
    if (width < 0) {
        width += SecPerCircle;
    }
    if (width < 0) {
        return true; // more than a circle between its edges, the wrong way round
    }
    std::int32_t west = (box.west - Design.LonWestSec) % SecPerCircle;
    if (west < 0) {
        west += SecPerCircle;
    }
    return west <= Design.LonSpanSec || west + width >= SecPerCircle;
}

bool MetresMeet(const PlaceBox& box) {
    constexpr auto degrees = [](std::int32_t seconds) { return static_cast<double>(seconds) / SecPerDegree; };
    const std::optional<MetreBox> metres =
        UtmEnclosure(degrees(box.south), degrees(box.north), degrees(box.west), degrees(box.east));
    return !metres || (metres->south <= Design.LatNorthSec && metres->north >= Design.LatSouthSec &&
                       metres->west <= Design.LonSpanSec && metres->east >= Design.LonZeroSec);
}

} // namespace

bool BoxMayTouchMap(const PlaceBox& box) {
    if (Design.ProjNum == ProjUtm) {
        return MetresMeet(box);
    }
    return IsAzimuthal(Design.ProjNum) || (LatitudesMeet(box) && LongitudesMeet(box));
}

} // namespace quelmont
