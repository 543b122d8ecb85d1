#pragma once

#include "qtsurface/pixel_grid.h"

namespace quelmont {

/// A line of one pixel, without its end pixel: one pixel per column where the line is flatter than
/// 45 degrees, else one per row, the nearest to the line, of two equally near ones the lower or
/// right one. So a line and its reverse run over the same pixels. Nothing for a length of zero.
void DrawThinLine(const PixelGrid& grid, SurfacePoint from, SurfacePoint to, std::uint32_t pixel);

} // namespace quelmont
