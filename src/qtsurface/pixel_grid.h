#pragma once

#include "platform/draw_surface.h"

#include <cstdint>
#include <span>
#include <vector>

/// Painting on plain pixels, without antialiasing. Pixel (x, y) is a unit square about the point
/// (x, y). Coordinates may be any 32-bit numbers: what lies outside is cut off beforehand, at no
/// cost for its length, and the pixels inside are those that an unlimited grid would show there.

namespace quelmont {

/// Spans that were painted last, all in one colour: whoever fills them again with that colour is done
/// already. Symbols that lie over each other so cost no more than the pixels that they change.
class PaintedSpans {
public:
    explicit PaintedSpans(std::int32_t width_ = 0, std::int32_t height = 0)
        : width(width_), rows(static_cast<std::size_t>(height)) {}

    std::uint32_t Color() const { return color; }
    /// Something of a colour will be painted: spans of another one are forgotten.
    void Take(std::uint32_t pixel) {
        if (pixel != color) {
            Forget();
            color = pixel;
        }
    }
    void Forget();
    /// All pixels have the colour.
    bool IsWhole() const { return wholeRows == rows.size(); }
    /// Paints first to last, which lie inside the row, as far as they do not have the colour.
    void Fill(std::uint32_t* line, std::size_t row, std::int32_t first, std::int32_t last);

private:
    struct Row {
        std::int32_t first = 0, last = -1;
        std::uint32_t generation = 0;
    };
    std::int32_t width;
    std::vector<Row> rows; ///< of another generation: forgotten
    std::uint32_t generation = 1;
    std::uint32_t color = 0; ///< no pixel of a picture
    std::size_t wholeRows = 0;
};

/// A rectangle of pixels, row after row without gaps, each 0xFFRRGGBB. Everything that paints on it goes
/// through the functions below, or forgets the painted spans.
struct PixelGrid {
    std::uint32_t* pixels = nullptr;
    std::int32_t width = 0;
    std::int32_t height = 0;
    PaintedSpans* painted = nullptr; ///< none: every pixel is painted anew

    /// Whether every pixel is known to have a colour.
    bool IsAll(std::uint32_t pixel) const {
        return painted != nullptr && painted->Color() == pixel && painted->IsWhole();
    }
    /// Something of a colour is laid over pixels, which leaves those of that colour as they are.
    void Take(std::uint32_t pixel) const {
        if (painted != nullptr) {
            painted->Take(pixel);
        }
    }
    /// Pixels are changed in another way.
    void Forget() const {
        if (painted != nullptr) {
            painted->Forget();
        }
    }
    bool Holds(SurfacePoint p) const {
        return static_cast<std::uint32_t>(p.x) < static_cast<std::uint32_t>(width) &&
               static_cast<std::uint32_t>(p.y) < static_cast<std::uint32_t>(height);
    }
};

/// Sets the pixels first to last of a row, both included.
void FillSpan(const PixelGrid& grid, std::int64_t row, std::int64_t first, std::int64_t last,
              std::uint32_t pixel);

/// The inside of a polygon whose vertices are pixel centres; FillAlternate or FillWinding. Of its
/// edges the left and upper ones are inside.
void FillPolygon(const PixelGrid& grid, std::span<const SurfacePoint> points, int fillMode,
                 std::uint32_t pixel);

/// The same of several polygons together, the points of one behind those of another; counts has the number
/// of each.
void FillPolygons(const PixelGrid& grid, std::span<const SurfacePoint> points,
                  std::span<const std::int32_t> counts, int fillMode, std::uint32_t pixel);

/// A filled ellipse about (centreX, centreY), semi-axes in pixels; a hole with semi-axes above 0
/// stays free.
struct EllipseShape {
    double centreX = 0.0, centreY = 0.0;
    double semiX = 0.0, semiY = 0.0;
    double holeX = 0.0, holeY = 0.0;
};
void FillEllipse(const PixelGrid& grid, const EllipseShape& ellipse, std::uint32_t pixel);

} // namespace quelmont
