#include "packed_segments.h"

#include "mapfiles/packed_file.h"

#include <algorithm>

namespace quelmont {

SecondsBox BoxAround(const std::vector<TruePlace>& line) {
    SecondsBox box{line[0].lon, line[0].lat, line[0].lon, line[0].lat};
    for (const TruePlace& place : line) {
        box.west = std::min(box.west, place.lon);
        box.east = std::max(box.east, place.lon);
        box.south = std::min(box.south, place.lat);
        box.north = std::max(box.north, place.lat);
    }
    return box;
}

std::string Segment(int rank, const std::vector<TruePlace>& line) {
    return Segment(rank, line, BoxAround(line));
}

std::string Segment(int rank, const std::vector<TruePlace>& line, const SecondsBox& box) {
    PackedHeader header;
    header.Rank = static_cast<std::uint8_t>(rank);
    header.Count = static_cast<std::int32_t>(line.size());
    header.BoxWest = box.west;
    header.BoxSouth = box.south;
    header.BoxEast = box.east;
    header.BoxNorth = box.north;
    header.FirstLon = line[0].lon;
    header.FirstLat = line[0].lat;
    std::string bytes = Text(EncodePackedHeader(header));
    for (std::size_t i = 1; i < line.size(); ++i) {
        bytes += Text(EncodePackedStep({static_cast<std::int8_t>(line[i].lon - line[i - 1].lon),
                                        static_cast<std::int8_t>(line[i].lat - line[i - 1].lat)}));
    }
    return bytes;
}

std::vector<TruePlace> Eastward(TruePlace from, std::int32_t step, int count) {
    std::vector<TruePlace> line;
    for (int i = 0; i < count; ++i) {
        line.push_back({from.lat, from.lon + i * step});
    }
    return line;
}

} // namespace quelmont
