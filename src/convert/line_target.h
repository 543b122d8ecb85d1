#pragma once

#include "convert/map_line.h"

#include <cstdint>
#include <string>

namespace quelmont {

/// What a line belongs to in its target.
struct TargetFeature {
    std::int16_t Number = 0; ///< row of the features
    std::string Name;        ///< of the row; empty if it has none
    std::string Label;       ///< UTF-8; empty for none
};

/// A file that is written, complete or not at all: only Finish puts it in its place.
class LineTarget {
public:
    LineTarget() = default;
    virtual ~LineTarget() = default;
    LineTarget(const LineTarget&) = delete;
    LineTarget& operator=(const LineTarget&) = delete;

    /// Longitudes are -180 to 180, latitudes -90 to 90. The line may be taken apart. ConvertError when
    /// it cannot be written.
    virtual void Write(const TargetFeature& feature, MapLine& line) = 0;
    /// ConvertError when the file cannot be completed or put in its place.
    virtual void Finish() = 0;
};

} // namespace quelmont
