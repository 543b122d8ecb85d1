#pragma once

#include "core/standard_colors.h"

#include <string>
#include <vector>

namespace quelmont {

/// What the shades of a map mean, for whoever draws their key.
struct ShadeKey {
    struct Row {
        ColorValue color = 0;
        std::string text; ///< UTF-8
    };
    std::string title;
    std::vector<Row> rows; ///< from the least value to the largest; empty when the map has no shades
};

} // namespace quelmont
