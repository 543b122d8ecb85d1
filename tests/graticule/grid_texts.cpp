#include "graticule/grid_texts.h"

#include "core/constant_defs.h"
#include "core/map_design.h"
#include "graticule/calc_graticule.h"

#include <cstdlib>

namespace quelmont {

namespace {

std::string Digits(std::int32_t value, std::size_t count) {
    const std::string digits = std::to_string(value);
    return std::string(count - std::min(count, digits.size()), '0') + digits;
}

std::string Groups(std::int32_t seconds, std::size_t degreeDigits) {
    const std::int32_t absolute = std::abs(seconds);
    return Digits(absolute / 3600, degreeDigits) + "    " + Digits(absolute / 60 % 60, 2) + "    " +
           Digits(absolute % 60, 2);
}

} // namespace

std::string LatitudeText(std::int32_t seconds) {
    return Groups(seconds, 2) + (seconds < 0 ? "    S" : "    N");
}
std::string LongitudeText(std::int32_t seconds) {
    return Groups(seconds, 3) + (seconds < 0 ? "    W" : "    E");
}
std::string ArcText(std::int32_t seconds) { return Groups(seconds, 3); }

void StartDesign(std::int16_t projNum) {
    ConstantDefs();
    Design.ProjNum = projNum;
    ConstantGrid();
}

void StartRectangle(std::int16_t projNum, int north, int south, int west, int east, int spacing) {
    StartDesign(projNum);
    Design.GridText[GridTextNorth] = LatitudeText(north * 3600);
    Design.GridText[GridTextSouth] = LatitudeText(south * 3600);
    Design.GridText[GridTextWest] = LongitudeText(west * 3600);
    Design.GridText[GridTextEast] = LongitudeText(east * 3600);
    Design.GridText[GridTextLatSpacing] = ArcText(spacing * 3600);
    Design.GridText[GridTextLonSpacing] = ArcText(spacing * 3600);
}

void StartDisc(std::int16_t projNum, int lat, int lon, int range) {
    StartDesign(projNum);
    Design.GridText[GridTextCentralLat] = LatitudeText(lat * 3600);
    Design.GridText[GridTextCentralLon] = LongitudeText(lon * 3600);
    Design.GridText[GridTextRange] = ArcText(range * 3600);
}

} // namespace quelmont
