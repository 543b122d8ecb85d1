#pragma once

#include "platform/draw_surface.h"

#include <cstdint>
#include <span>

namespace quelmont {

/// Parts of a pixel in which places of fine lines are counted, each way.
constexpr std::int32_t FinePerPixel = 64;

/// Lines and areas between places finer than a pixel: what a surface that antialiases offers beside LineTo.
/// Coordinates are in parts of a pixel, FinePerPixel to one; (0, 0) is the centre of the surface's first
/// pixel. The lines have the surface's current pen and share its current position.
class FineLines {
public:
    virtual ~FineLines() = default;

    /// Makes a solid pen, width in pixels (below 1 counts as 1). Returns 0 on failure.
    virtual SurfaceHandle CreateFinePen(double width, std::uint32_t color) = 0;
    /// Sets the current position and draws nothing.
    virtual void MoveToFine(std::int32_t x, std::int32_t y) = 0;
    /// Draws from the current position to (x, y), both ends rounded, and moves there. What lies between two
    /// moves is one line: where it meets or crosses itself it is no darker. A length of zero draws nothing.
    virtual void LineToFine(std::int32_t x, std::int32_t y) = 0;
    /// Fills several closed outlines with the brush as PolyPolygon does, by the fill mode and without an
    /// outline, its edges antialiased. Areas that are filled one after the other and share an edge leave no
    /// seam there.
    virtual bool PolyPolygonFine(std::span<const SurfacePoint> points,
                                 std::span<const std::int32_t> counts) = 0;
};

} // namespace quelmont
