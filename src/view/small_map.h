#pragma once

#include "core/map_design.h"

#include <cstdint>

namespace quelmont {

class DrawSurface;

/// Draws a small map with bounds that were proposed for a projection (ProposeBoundsFor): the grid and the
/// coasts of the program's own world map, in the colours of the design, by the stages of any draw.
///
/// width, height: of the surface, its pixels. Shows no message box, lets no events run, tells nobody, and
/// changes nothing of the design. Not to be called in a draw.
void DrawSmallMap(DrawSurface& surface, std::int32_t width, std::int32_t height, std::int16_t projNum,
                  const DesignBounds& bounds);

} // namespace quelmont
