#pragma once

#include "core/map_file_entry.h"

#include <cstdint>

namespace quelmont {

class DrawSurface;

/// What a symbol type looks like on a map. Lengths in pixels of the surface.
struct SymbolSample {
    std::int16_t type = SymbolLine;
    std::int32_t width = 0; ///< of the place, which begins at (0, 0)
    std::int32_t height = 0;
    std::int32_t penWidth = 1;
    ColorValue color = 0;
};

/// Plots a sample: a line, or dots, along a short course from left to right, any other symbol once in
/// the middle. A symbol is drawn as on a map, so that a sample is what a map shows. The surface's pen is left
/// as it was. RunTimeError as DrawSymbol.
void DrawSymbolSample(DrawSurface& surface, const SymbolSample& sample);

} // namespace quelmont
