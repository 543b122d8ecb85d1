#pragma once

#include <cstdint>

namespace quelmont {

/// Distances of an equilateral triangle's base and apex from its centre, for half a side of 1.
/// Three digits, on every device, so that the triangle is the same everywhere.
constexpr double TriangleBase = 0.577;
constexpr double TriangleApex = 1.155;

/// Draws the symbol CurrentSymbolType, 3 to 12, about a device point, with the pen that is current
/// and, for the filled ones, a brush of PenColor. Any other type draws nothing.
///
/// Reads   CurrentSymbolType, PenColor, SymbolRadius (twips), DevicePixelX, DevicePixelY, Surface.
/// RunTimeError "Overflow" when a corner lies too far out; a surface operation that fails shows its
/// box and the rest goes on.
void DrawSymbol(std::int32_t x, std::int32_t y);

} // namespace quelmont
