#include "projection/map_fields.h"

#include "core/map_design.h"
#include "core/rounding.h"
#include "projection/project_select.h"

#include <cmath>

namespace quelmont {

namespace {

void SetCentre(double latCentral) {
    Design.LatCentral = latCentral;
    Design.LatCentralRad = latCentral * DegToRad;
    Design.CosLatCentral = std::cos(Design.LatCentralRad);
    Design.SinLatCentral = std::sin(Design.LatCentralRad);
}

void SetBounds(double north, double south, double span) {
    Design.LatNorth = north;
    Design.LatSouth = south;
    Design.LatNorthSec = RoundToInt32(north * SecPerDegree);
    Design.LatSouthSec = RoundToInt32(south * SecPerDegree);
    Design.LatNorthText = north < 0.0 ? "00 00 00 S" : "00 00 00 N";
    Design.LatSouthText = south < 0.0 ? "00 00 00 S" : "00 00 00 N";
    Design.LonZero = 0.0;
    Design.LonZeroSec = 0;
    Design.LonSpan = span;
    Design.LonSpanSec = RoundToInt32(span * SecPerDegree);
    Design.LonCentral = span / 2.0;
}

} // namespace

void SetRectangle(std::int16_t projNum, double north, double south, double span) {
    Design.ProjNum = projNum;
    SetBounds(north, south, span);
    SetCentre(north - (north - south) / 2.0);
}

void SetDisc(std::int16_t projNum, double latCentral, double range) {
    Design.ProjNum = projNum;
    SetBounds(90.0, -90.0, 360.0);
    SetCentre(latCentral);
    Design.HorizonCos = {0.0, -1.0, -1e-08, 0.0, -1.0, -1.0};
    Design.RangeSec = RoundToInt32(range * SecPerDegree);
    Design.CosRange = std::cos(Design.RangeSec * DegToRad / SecPerDegree);
}

void ProjectAt(double lat, double lon) {
    Design.ProjLat = lat;
    Design.ProjLon = lon;
    ProjectSelect();
}

} // namespace quelmont
