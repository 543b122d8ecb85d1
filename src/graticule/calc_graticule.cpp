#include "graticule/calc_graticule.h"

#include "core/angle_field.h"
#include "core/angle_text.h"
#include "core/checked_math.h"
#include "core/degrees.h"
#include "core/error_box.h"
#include "core/map_design.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "graticule/graticule_fields.h"
#include "projection/projection_table.h"

#include <cmath>
#include <cstdlib>

namespace quelmont {

namespace {

constexpr const char* NorthPole = "90    00    00    N";
constexpr const char* SouthPole = "90    00    00    S";

void ReadGridTexts() {
    Design.LatCentralSec = LatitudeSeconds(Design.GridText[GridTextCentralLat]);
    Design.LonCentralSec = LongitudeSeconds(Design.GridText[GridTextCentralLon]);
    Design.RangeSec = ArcSeconds(Design.GridText[GridTextRange]);
    Design.VpDistanceKm = ValueOf(Design.GridText[GridTextHeight]);
    Design.LatNorthSec = LatitudeSeconds(Design.GridText[GridTextNorth]);
    Design.LatSouthSec = LatitudeSeconds(Design.GridText[GridTextSouth]);
    Design.LatGridSec = ArcSeconds(Design.GridText[GridTextLatSpacing]);
    Design.LonWestSec = LongitudeSeconds(Design.GridText[GridTextWest]);
    Design.LonEastSec = LongitudeSeconds(Design.GridText[GridTextEast]);
    Design.LonGridSec = ArcSeconds(Design.GridText[GridTextLonSpacing]);
}

/// The text of a boundary half a circle from the centre: whole degrees of its own, minutes and
/// seconds of the centre.
std::string BoundaryText(std::int32_t seconds) {
    const std::string centre = Design.GridText[GridTextCentralLon];
    const std::int32_t degrees = std::abs(seconds) / SecPerDegree;
    std::string text = FormatNumber(degrees, "000");
    text += "    " + std::string(Columns(centre, 8, 9)) + "    " + std::string(Columns(centre, 14, 15));
    text += "    ";
    text += seconds < 0 ? 'W' : 'E';
    return text;
}

/// An azimuthal map is bounded by a circle: its rectangle is the whole globe about the centre.
void BoundWholeGlobe() {
    Design.GridText[GridTextNorth] = NorthPole;
    Design.GridText[GridTextSouth] = SouthPole;
    Design.LatNorthSec = LatitudeSeconds(Design.GridText[GridTextNorth]);
    Design.LatSouthSec = LatitudeSeconds(Design.GridText[GridTextSouth]);
    Design.LonEastSec = Design.LonCentralSec + SecPerHalfCircle;
    if (Design.LonEastSec > SecPerHalfCircle) {
        Design.LonEastSec -= SecPerCircle;
    }
    Design.GridText[GridTextEast] = BoundaryText(Design.LonEastSec);
    Design.LonWestSec = Design.LonCentralSec - SecPerHalfCircle;
    if (Design.LonWestSec < -SecPerHalfCircle) {
        Design.LonWestSec += SecPerCircle;
    }
    Design.GridText[GridTextWest] = BoundaryText(Design.LonWestSec);
}

void RefuseGrid(const char* title, const char* text, const char* field, std::vector<std::string> restored) {
    Design.LastRefusal = RefuseField(field, title, text);
    Design.LastRefusal.Restored = std::move(restored);
    Design.ProjOffMap = true;
}

constexpr const char* NorthBelowSouth =
    "The NORTHERNMOST BOUNDARY of the grid is south of the SOUTHERNMOST BOUNDARY.";
constexpr const char* NorthEqualsSouth =
    "The NORTHERNMOST and SOUTHERNMOST BOUNDARIES of the grid are equal.";
constexpr const char* LatitudeGridAzimuthal = "The DEGREES OF LATITUDE BETWEEN GRID MARKS must yield an "
                                              "integer when divided into 180 degrees.";
constexpr const char* LatitudeGrid = "The DEGREES OF LATITUDE BETWEEN GRID MARKS do not yield an integral "
                                     "number of divisions along the latitude axis.";
constexpr const char* LongitudeGridAzimuthal = "The DEGREES OF LONGITUDE BETWEEN GRID MARKS must yield an "
                                               "integer when divided into 360 degrees.";
constexpr const char* LongitudeGrid = "The DEGREES OF LONGITUDE BETWEEN GRID MARKS do not yield an integral "
                                      "number of divisions along the longitude axis.";
constexpr const char* ZeroRange =
    "Quelmont cannot plot a map in which the westernmost longitude is 180\u00B0E and the easternmost "
    "longitude is 180\u00B0W, since the longitude range of this map is zero.\n\nTry setting the westernmost "
    "longitude to 180\u00B0W and the easternmost longitude to 180\u00B0E.";

/// True when the design was refused; the first test that fails wins.
bool Refused() {
    const bool azimuthal = IsAzimuthal(Design.ProjNum);
    const std::int32_t latRest =
        Remainder(std::abs(Design.LatNorthSec - Design.LatSouthSec), Design.LatGridSec);
    const std::int32_t lonRest =
        Remainder(std::abs(Design.LonSpanSec - Design.LonZeroSec), Design.LonGridSec);
    if (Design.LatNorthSec < Design.LatSouthSec) {
        RefuseGrid("Error: Latitude", NorthBelowSouth, "LatN", {"LatN", "LatS"});
    } else if (Design.LatNorthSec == Design.LatSouthSec) {
        RefuseGrid("Error: Latitude", NorthEqualsSouth, "LatN", {"LatN", "LatS"});
    } else if (latRest != 0) {
        RefuseGrid("Error: Degrees of latitude", azimuthal ? LatitudeGridAzimuthal : LatitudeGrid, "LatGr",
                   {"LatGr"});
    } else if (lonRest != 0) {
        RefuseGrid("Error: Degrees of longitude", azimuthal ? LongitudeGridAzimuthal : LongitudeGrid, "LonGr",
                   {"LonGr"});
    } else if (Design.LonEastSec == -SecPerHalfCircle && Design.LonWestSec == SecPerHalfCircle) {
        RefuseGrid("Error: Longitude", ZeroRange, "LonW", {"LonW", "LonE"});
    } else {
        return false;
    }
    return true;
}

} // namespace

void ConstantGrid() {
    Guarded("ConstantGrid", [] {
        const std::string height = Design.GridText[GridTextHeight];
        Design.GridText = {NorthPole,
                           SouthPole,
                           "030    00    00",
                           "180    00    00    W",
                           "180    00    00    E",
                           "045    00    00",
                           "40    00    00    N",
                           "000    00    00    W",
                           "180    00    00",
                           "00035840"};
        if (Design.ProjGridSet[ProjVerticalPerspective]) {
            Design.GridText[GridTextHeight] = height;
        }
    });
}

void CalcGraticule() {
    Guarded("CalcGraticule", [] {
        Design.LastRefusal = {};
        ReadGridTexts();
        if (IsAzimuthal(Design.ProjNum)) {
            BoundWholeGlobe();
        }
        SpanLongitudes();
        if (Refused()) {
            return;
        }
        CountDivisions();
        DegreesFromSeconds();
        CompactTexts(Design.GridText[GridTextWest], Design.GridText[GridTextEast]);
        if (IsAzimuthal(Design.ProjNum)) {
            Design.LatCentral = DegreesOf(Design.LatCentralSec);
            Design.LonMiddle = DegreesOf(Design.LonCentralSec);
            Design.CosRange = std::cos(Design.RangeSec * DegToRad / SecPerDegree);
        } else {
            CentreOfRectangle();
        }
        CentralTerms();
    });
}

} // namespace quelmont
