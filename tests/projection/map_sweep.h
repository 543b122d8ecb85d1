#pragma once

#include <cstdint>
#include <iosfwd>
#include <string>
#include <vector>

/// Every projection on the unit sphere but the Robinson, which PROJ takes from a table, each over maps of all
/// kinds and with PROJ's definition of each map.

namespace quelmont {

/// Degrees; a rectangle by its bounds and standard parallels, or a disc by its centre.
struct MapOfSweep {
    double north = 90.0, south = -90.0, span = 360.0;
    double std1 = 0.0, std2 = 0.0;
    double centre = 0.0;
    double height = 0.0; ///< of a view point, kilometres
};

struct SweptProjection {
    const char* name;
    std::int16_t projNum;
    std::vector<MapOfSweep> maps;
    std::string (*definition)(const MapOfSweep& map);
};

/// Named by its projection in the output of a test.
void PrintTo(const SweptProjection& swept, std::ostream* stream);

std::vector<SweptProjection> SweptProjections();

/// The fields of a map as the dialogs and ParamSelect leave them; a disc has a range of 60 degrees.
void SetSweptMap(std::int16_t projNum, const MapOfSweep& map);

/// True for the cylinders, whose x is counted from the western boundary of the map.
bool CountsFromWest(std::int16_t projNum);

} // namespace quelmont
