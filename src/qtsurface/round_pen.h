#pragma once

#include "qtsurface/pixel_grid.h"

#include <cstdint>
#include <vector>

namespace quelmont {

/// A round pen of two pixels or more. A pen of even width leans to the upper left by half a pixel.
class RoundPen {
public:
    explicit RoundPen(std::int32_t width);

    /// The mark of the pen at one place.
    void Dot(const PixelGrid& grid, SurfacePoint at, std::uint32_t pixel) const;
    /// All pixels whose centre lies within half the width of the line, both ends rounded; with two
    /// pixels of width, a square of four at each pixel of the thin line. A line and its reverse are
    /// the same. A length of zero gives the dot.
    void Line(const PixelGrid& grid, SurfacePoint from, SurfacePoint to, std::uint32_t pixel) const;

private:
    std::int32_t width;
    double radius;
    double lean;                     ///< from a place to the pen's centre, both ways
    std::vector<std::int32_t> inset; ///< by row of the dot: pixels of its box left free on each side
};

} // namespace quelmont
