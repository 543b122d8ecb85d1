#pragma once

#include <cstdint>
#include <string>
#include <utility>
#include <vector>

/// The lines of a map file under data/, decoded without the program, which would share its mistakes.

namespace quelmont {

struct MapPlace {
    int Lon = 0, Lat = 0; ///< units of the file, east and north positive
    auto operator<=>(const MapPlace&) const = default;
};

struct MapBytesLine {
    int Rank = 0; ///< as the file has it
    std::vector<MapPlace> Places;
    MapPlace BoxSouthWest, BoxNorthEast; ///< as a packed file tells it
};

struct MapBytes {
    int UnitsPerDegree = 0;
    std::vector<MapBytesLine> Lines;
    std::size_t Size = 0;     ///< bytes
    bool EndsWithLine = true; ///< the last record is whole
};

/// data/Qmnt4.map, in minutes of arc. Read once.
const MapBytes& WorldMapBytes();

/// data/detail.pkv, in seconds of arc. Read once.
const MapBytes& DetailMapBytes();

/// Where 180 degrees east and west are one place.
MapPlace OnGlobe(const MapBytes& map, MapPlace place);

/// Distance on the sphere of two places of a map, minutes of arc.
double MinutesOfArc(const MapBytes& map, MapPlace from, MapPlace to);

/// Distance of a place from the nearest point of a line's segments, minutes of arc, for distances of a
/// few minutes; another unit of the place is stated.
double MinutesFromLine(const MapBytes& map, const MapBytesLine& line, double lonMinutes, double latMinutes);

} // namespace quelmont
