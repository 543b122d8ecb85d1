#include "mapinput/packed_box.h"

#include "core/coordinates.h"
#include "core/map_design.h"
#include "projection/projection_table.h"
#include "projection/utm.h"

#include <optional>

namespace quelmont {

namespace {

bool LatitudesMeet(const PackedHeader& box) {
    return box.BoxSouth <= Design.LatNorthSec && box.BoxNorth >= Design.LatSouthSec;
}

/// Both are arcs on the circle of longitudes. That of the map begins at 0.
bool LongitudesMeet(const PackedHeader& box) {
    std::int32_t width = box.BoxEast - box.BoxWest;
    if (width < 0) {
        width += SecPerCircle;
    }
    if (width < 0) {
        return true; // more than a circle between its edges, the wrong way round
    }
    std::int32_t west = (box.BoxWest - Design.LonWestSec) % SecPerCircle;
    if (west < 0) {
        west += SecPerCircle;
    }
    return west <= Design.LonSpanSec || west + width >= SecPerCircle;
}

bool MetresMeet(const PackedHeader& box) {
    constexpr auto degrees = [](std::int32_t seconds) { return static_cast<double>(seconds) / SecPerDegree; };
    const std::optional<MetreBox> metres = UtmEnclosure(degrees(box.BoxSouth), degrees(box.BoxNorth),
                                                        degrees(box.BoxWest), degrees(box.BoxEast));
    return !metres || (metres->south <= Design.LatNorthSec && metres->north >= Design.LatSouthSec &&
                       metres->west <= Design.LonSpanSec && metres->east >= Design.LonZeroSec);
}

} // namespace

bool BoxMayTouchMap(const PackedHeader& header) {
    if (Design.ProjNum == ProjUtm) {
        return MetresMeet(header);
    }
    return IsAzimuthal(Design.ProjNum) || (LatitudesMeet(header) && LongitudesMeet(header));
}

} // namespace quelmont
