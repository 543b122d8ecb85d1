#pragma once

#include "core/map_file_entry.h"

#include <cstdint>

namespace quelmont {

class DrawSurface;

/// Distances of an equilateral triangle's base and apex from its centre, for half a side of 1.
/// Three digits, on every device, so that the triangle is the same everywhere.
constexpr double TriangleBase = 0.577;
constexpr double TriangleApex = 1.155;

/// What of a symbol does not depend on its place.
struct SymbolPlot {
    std::int16_t type = SymbolPlus;
    ColorValue color = 0;              ///< of what is filled; outlines are the pen's
    double radius = 0.0;               ///< twips
    double scale = 1.0;                ///< how many times larger the map is than in the window
    double pixelX = 1.0, pixelY = 1.0; ///< twips per pixel of the surface
};

/// Draws a symbol of types 3 to 12 about a place in pixels, with the pen that the surface has. Other types
/// draw nothing. A failed operation shows its message box, which names PrintToScreen. RunTimeError "Overflow"
/// for a symbol that is too large.
void DrawSymbol(DrawSurface& surface, const SymbolPlot& symbol, std::int32_t x, std::int32_t y);

} // namespace quelmont
