#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace quelmont {

/// A line of a text in columns: the first cell at the left edge, each further one at its stop.
struct PageLine {
    std::vector<std::string> cells;  ///< UTF-8, without control characters; none: an empty line
    std::vector<std::int32_t> stops; ///< where cells 1, 2... begin, twips from the left edge, rising
    bool operator==(const PageLine&) const = default;
};

} // namespace quelmont
