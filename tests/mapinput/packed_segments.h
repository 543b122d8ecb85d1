#pragma once

#include "map_fixture.h"

#include <cstdint>
#include <string>
#include <vector>

namespace quelmont {

/// A segment of a packed file through points in seconds of arc, each at most 128 from the one before,
/// with the box around them.
std::string Segment(int rank, const std::vector<TruePlace>& line);

/// The same with a box of one's own.
struct SecondsBox {
    std::int32_t west, south, east, north;
};
std::string Segment(int rank, const std::vector<TruePlace>& line, const SecondsBox& box);

SecondsBox BoxAround(const std::vector<TruePlace>& line);

/// A line of so many points, so many seconds apart on a parallel.
std::vector<TruePlace> Eastward(TruePlace from, std::int32_t step, int count);

} // namespace quelmont
