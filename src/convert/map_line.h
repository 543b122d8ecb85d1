#pragma once

#include <functional>
#include <stdexcept>
#include <vector>

namespace quelmont {

/// Why a conversion ends without an output file, in words for its user.
class ConvertError : public std::runtime_error {
public:
    using std::runtime_error::runtime_error;
};

/// The same for what is wrong with one feature of the source, which does not know where it was.
class BadFeature : public ConvertError {
public:
    using ConvertError::ConvertError;
};

/// Degrees, east and north positive.
struct LonLat {
    double Lon = 0.0, Lat = 0.0;
    bool operator==(const LonLat&) const = default;
};

/// Points that are joined, or a single one. A closed line repeats its first point as the last.
using MapLine = std::vector<LonLat>;

/// Receives a line, whose points it may change or take.
using LineTaker = std::function<void(MapLine&)>;

} // namespace quelmont
