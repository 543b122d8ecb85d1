#include "graticule/utm_grid.h"

#include "core/angle_field.h"
#include "core/checked_math.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "graticule/graticule_fields.h"

#include <cstdint>
#include <cstdlib>

namespace quelmont {

namespace {

std::int32_t Metres(std::size_t index) { return RoundToInt32(ValueOf(Design.UtmText[index])); }

void ReadMetreTexts() {
    Design.LatNorthSec = Metres(5);
    Design.LatSouthSec = Metres(6);
    Design.LatGridSec = Metres(7);
    Design.LonWestSec = Metres(8);
    Design.LonEastSec = Metres(9);
    Design.LonGridSec = Metres(10);
}

bool RefuseMetres(const char* text, const char* field) {
    Design.LastRefusal = RefuseField(field, "Error: UTM projection", text);
    Design.ProjOffMap = true;
    return true;
}

/// Rest of a distance over a spacing; the distance may exceed int32 when its ends have opposite
/// signs.
std::int64_t Rest(std::int32_t a, std::int32_t b, std::int32_t spacing) {
    return std::abs(static_cast<std::int64_t>(a) - b) % spacing;
}

bool SpacingRefused() {
    if (Design.LatGridSec == 0) {
        return RefuseMetres("The METERS BETWEEN NORTH/SOUTH GRID MARKS must be > 0.", "UtmLatGrid");
    }
    if (Design.LonGridSec == 0) {
        return RefuseMetres("The METERS BETWEEN EAST/WEST GRID MARKS must be > 0.", "UtmLonGrid");
    }
    return false;
}

bool BoundsRefused() {
    if (Rest(Design.LatNorthSec, Design.LatSouthSec, Design.LatGridSec) != 0) {
        return RefuseMetres("The METERS BETWEEN NORTH/SOUTH GRID MARKS does not yield an integral number of "
                            "divisions along the axis.",
                            "UtmLatGrid");
    }
    if (Design.LatNorthSec < Design.LatSouthSec) {
        return RefuseMetres("The NORTHERN BOUNDARY is south of the SOUTHERN BOUNDARY.", "UtmLatN");
    }
    if (Design.LatNorthSec == Design.LatSouthSec) {
        return RefuseMetres("The NORTHERN and SOUTHERN BOUNDARIES are equal.", "UtmLatN");
    }
    if (Rest(Design.LonSpanSec, Design.LonZeroSec, Design.LonGridSec) != 0) {
        return RefuseMetres("The METERS BETWEEN EAST/WEST GRID MARKS does not yield an integral number of "
                            "divisions along the axis.",
                            "UtmLonGrid");
    }
    if (Design.LonEastSec < Design.LonWestSec) {
        return RefuseMetres("The EASTERN BOUNDARY is west of the WESTERN BOUNDARY.", "UtmLonW");
    }
    if (Design.LonEastSec == Design.LonWestSec) {
        return RefuseMetres("The EASTERN and WESTERN BOUNDARIES are equal.", "UtmLonW");
    }
    return false;
}

void StoreMetres() {
    Design.LatGrid = Design.LatGridSec;
    Design.LatNorth = Design.LatNorthSec;
    Design.LatSouth = Design.LatSouthSec;
    Design.LonGrid = Design.LonGridSec;
    Design.LonWest = Design.LonWestSec;
    Design.LonEast = Design.LonEastSec;
    Design.LonSpan = Design.LonSpanSec;
    Design.LonZero = Design.LonZeroSec;
}

} // namespace

void CalcUtmGrid() {
    Guarded("CalcUtmGrid", [] {
        Design.LastRefusal = {};
        ReadMetreTexts();
        if (SpacingRefused()) {
            return;
        }
        Design.LonZeroSec = Design.LonWestSec;
        Design.LonSpanSec = Design.LonEastSec;
        if (BoundsRefused()) {
            return;
        }
        CountDivisions();
        StoreMetres();
    });
}

} // namespace quelmont
