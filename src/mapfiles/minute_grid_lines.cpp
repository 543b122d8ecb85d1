#include "mapfiles/minute_grid_lines.h"

#include "mapfiles/minute_grid_records.h"

#include <algorithm>

namespace quelmont {

MinuteGridLines TakeMinuteGridLines(ByteReader& bytes) {
    MinuteGridLines taken;
    for (MinuteGridRecords records(bytes); records.Next();) {
        const MinuteGridLines::Place place{records.LatMinutes(), records.LonMinutes()};
        const std::size_t number = taken.places.size();
        if (records.BeginsLine() || taken.lines.empty()) {
            taken.lines.push_back({.feature = records.Feature(),
                                   .begins = records.BeginsLine(),
                                   .first = number,
                                   .end = number,
                                   .south = place.lat,
                                   .north = place.lat,
                                   .west = place.lon,
                                   .east = place.lon});
        }
        MinuteGridLines::Line& line = taken.lines.back();
        line.end = number + 1;
        line.south = std::min(line.south, place.lat);
        line.north = std::max(line.north, place.lat);
        line.west = std::min(line.west, place.lon);
        line.east = std::max(line.east, place.lon);
        taken.places.push_back(place);
    }
    return taken;
}

} // namespace quelmont
