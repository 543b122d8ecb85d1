#pragma once

#include "exports/drawn_lines.h"

#include <string>
#include <vector>

namespace quelmont {

/// The first thing in which a file's map differs from what the window was asked to draw, "" when there is
/// none: lines, their points, colours and widths as far as both tell them, dots, symbols. Places may be as
/// far apart as the roundings of pixels, logical units and their origins can make them.
std::string Difference(const DrawnMap& file, const DrawnMap& screen);

/// The same of places alone.
std::string Difference(const std::vector<SurfacePoint>& file, const std::vector<SurfacePoint>& screen);

} // namespace quelmont
