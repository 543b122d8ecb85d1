#pragma once

#include <cstdint>

namespace quelmont {

/// What of a source is lost or changed. Counted anew by each reading.
struct SourceLosses {
    std::int64_t emptyFeatures = 0; ///< without a geometry
    std::int64_t unknownLines = 0;  ///< of a rank or code that means nothing, left out
    std::int64_t heights = 0;       ///< features whose heights are left out
    std::int64_t measures = 0;      ///< features whose measures are left out
    std::int64_t polygons = 0;      ///< became closed lines
    std::int64_t curvePoints = 0;   ///< put into segments that are straight in a projected system only
};

} // namespace quelmont
