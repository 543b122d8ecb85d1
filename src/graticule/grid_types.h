#pragma once

#include "core/map_design.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace quelmont {

/// What the grid shows.
struct GridType {
    std::int16_t code;        ///< GridTypeCode
    std::string_view text;    ///< GridTypeText, as its list shows it
    std::int16_t outputCount; ///< GridOutputCount: ASCII files that the grid makes
};

// clang-format off
constexpr std::array<GridType, 5> GridTypes = {{
    {1, " Outside boundary connected by lines, interior grid points shown",    2},
    {2, " Outside boundary connected by lines, no interior grid points shown", 1},
    {3, " All grid points connected by lines",                                 1},
    {4, " Grid points only, no lines connecting points",                       1},
    {5, " No grid (the map will have no latitude or longitude markings)",      0},
}};
// clang-format on

/// Makes a grid type the design's.
inline void StoreGridType(const GridType& type) {
    Design.GridTypeCode = type.code;
    Design.GridTypeText = type.text;
    Design.GridOutputCount = type.outputCount;
}

} // namespace quelmont
