#include "graticule/graticule_fields.h"

#include "core/angle_text.h"
#include "core/checked_math.h"
#include "core/degrees.h"
#include "core/map_design.h"
#include "core/rounding.h"

#include <cmath>

namespace quelmont {

namespace {

/// Exact, also where the difference would not fit 32 bits.
double Difference(std::int32_t a, std::int32_t b) { return static_cast<double>(a) - b; }

} // namespace

void SpanLongitudes() {
    Design.LonZeroSec = 0;
    const double width = Difference(Design.LonEastSec, Design.LonWestSec);
    Design.LonSpanSec = RoundToInt32(width);
    if (Design.LonWestSec > Design.LonEastSec) {
        Design.LonSpanSec = RoundToInt32(SecPerCircle + width);
    } else if (Design.LonWestSec == Design.LonEastSec) {
        Design.LonSpanSec = SecPerCircle;
    }
}

void CountDivisions() {
    Design.LatGridCount = RoundToInt32(
        Divide(std::fabs(Difference(Design.LatNorthSec, Design.LatSouthSec)), Design.LatGridSec));
    Design.LonGridCount =
        RoundToInt32(Divide(std::fabs(Difference(Design.LonSpanSec, Design.LonZeroSec)), Design.LonGridSec));
}

void DegreesFromSeconds() {
    Design.LatGrid = DegreesOf(Design.LatGridSec);
    Design.LatNorth = DegreesOf(Design.LatNorthSec);
    Design.LatSouth = DegreesOf(Design.LatSouthSec);
    Design.LonGrid = DegreesOf(Design.LonGridSec);
    Design.LonWest = DegreesOf(Design.LonWestSec);
    Design.LonEast = DegreesOf(Design.LonEastSec);
    Design.LonSpan = DegreesOf(Design.LonSpanSec);
    Design.LonZero = DegreesOf(Design.LonZeroSec);
    Design.LonCentral = (Design.LonSpan + Design.LonZero) / 2.0;
}

void CompactTexts(std::string_view west, std::string_view east) {
    Design.LatNorthText = CompactLatitude(Design.GridText[GridTextNorth]);
    Design.LatSouthText = CompactLatitude(Design.GridText[GridTextSouth]);
    Design.LatGridText = CompactArc(Design.GridText[GridTextLatSpacing]);
    Design.LonWestText = CompactLongitude(west);
    Design.LonEastText = CompactLongitude(east);
    Design.LonGridText = CompactArc(Design.GridText[GridTextLonSpacing]);
}

void CentreOfRectangle() {
    Design.LatCentral = Design.LatNorth - (Design.LatNorth - Design.LatSouth) / 2.0;
    const double half = (Design.LonSpan - Design.LonZero) / 2.0;
    Design.LonMiddle = half + Design.LonWest;
    if (Design.LonMiddle > 180.0) {
        Design.LonMiddle = Design.LonEast - half;
    }
}

void CentralTerms() {
    Design.LatCentralRad = Design.LatCentral * DegToRad;
    Design.CosLatCentral = std::cos(Design.LatCentralRad);
    Design.SinLatCentral = std::sin(Design.LatCentralRad);
    DegMinSec(Design.LatCentral, Design.LatCentralText, "LAT", 1);
    DegMinSec(Design.LonMiddle, Design.LonCentralText, "LON", 1);
}

} // namespace quelmont
