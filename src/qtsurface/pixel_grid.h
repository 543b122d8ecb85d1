#pragma once

#include "platform/draw_surface.h"

#include <cstdint>
#include <span>
#include <vector>

/// Painting on plain pixels, without antialiasing. Pixel (x, y) is a unit square about the point
/// (x, y). Coordinates may be any 32-bit numbers: what lies outside is cut off beforehand, at no
/// cost for its length, and the pixels inside are those that an unlimited grid would show there.

namespace quelmont {

/// A rectangle of pixels, row after row without gaps, each 0xFFRRGGBB.
struct PixelGrid {
    std::uint32_t* pixels = nullptr;
    std::int32_t width = 0;
    std::int32_t height = 0;

    bool Holds(SurfacePoint p) const {
        return static_cast<std::uint32_t>(p.x) < static_cast<std::uint32_t>(width) &&
               static_cast<std::uint32_t>(p.y) < static_cast<std::uint32_t>(height);
    }
};

/// Sets the pixels first to last of a row, both included.
void FillSpan(const PixelGrid& grid, std::int64_t row, std::int64_t first, std::int64_t last,
              std::uint32_t pixel);

/// A line of one pixel, without its end pixel: one pixel per column where the line is flatter than
/// 45 degrees, else one per row, the nearest to the line, of two equally near ones the lower or
/// right one. So a line and its reverse run over the same pixels. Nothing for a length of zero.
void DrawThinLine(const PixelGrid& grid, SurfacePoint from, SurfacePoint to, std::uint32_t pixel);

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

/// The inside of a polygon whose vertices are pixel centres; FillAlternate or FillWinding. Of its
/// edges the left and upper ones are inside.
void FillPolygon(const PixelGrid& grid, std::span<const SurfacePoint> points, int fillMode,
                 std::uint32_t pixel);

/// A filled ellipse about (centreX, centreY), semi-axes in pixels; a hole with semi-axes above 0
/// stays free.
struct EllipseShape {
    double centreX = 0.0, centreY = 0.0;
    double semiX = 0.0, semiY = 0.0;
    double holeX = 0.0, holeY = 0.0;
};
void FillEllipse(const PixelGrid& grid, const EllipseShape& ellipse, std::uint32_t pixel);

} // namespace quelmont
