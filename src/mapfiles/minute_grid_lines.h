#pragma once

#include "mapfiles/byte_reader.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace quelmont {

/// The lines of a whole minute-grid file in memory, in the order of their records.
struct MinuteGridLines {
    /// Minutes, north and east positive.
    struct Place {
        std::int16_t lat, lon;
    };
    struct Line {
        std::int16_t feature;      ///< row of the minute-grid features, or 0
        bool begins;               ///< false for records before the first that begins a line
        std::size_t first, end;    ///< of places; a line has at least one
        std::int16_t south, north; ///< the box of its places, minutes
        std::int16_t west, east;   ///< longitudes as they stand in the file
    };
    std::vector<Line> lines;
    std::vector<Place> places;

    std::size_t Bytes() const { return lines.size() * sizeof(Line) + places.size() * sizeof(Place); }
};

/// Takes all records that are left. RunTimeError "Subscript out of range" for a rank outside the span, and
/// when the file cannot be read.
MinuteGridLines TakeMinuteGridLines(ByteReader& bytes);

} // namespace quelmont
