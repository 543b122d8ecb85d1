#pragma once

#include "qtsurface/pixel_grid.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <vector>

namespace quelmont {

/// Paints ellipses and rings with smooth edges: each pixel is covered by the share of its area that lies
/// inside, exact along a row and sampled at sixteen heights of it. The figures painted last are kept, since a
/// map has many circles of one size.
class SmoothEllipses {
public:
    /// The ellipse without its hole. Semi-axes must be above 0.
    void Paint(const PixelGrid& grid, const EllipseShape& ellipse, std::uint32_t pixel);

private:
    /// A row of a figure: bytes of coverage on both sides of a stretch that is covered alike, all or not at
    /// all.
    struct Row {
        std::int64_t left = 0;                            ///< the first column
        std::size_t bytes = 0;                            ///< of the first one in coverage
        std::int32_t before = 0, between = 0, behind = 0; ///< columns
        bool full = false;                                ///< what lies between
    };
    struct Figure {
        EllipseShape shape; ///< its centre is less than one from 0
        std::int64_t top = 0;
        std::vector<Row> rows;
        std::vector<std::uint8_t> coverage;
    };

    static void AppendRow(Figure& figure, const EllipseShape& shape, std::int64_t row, std::int64_t first,
                          std::int64_t last);
    static void PaintRow(const PixelGrid& grid, const Figure& figure, const Row& row, std::int64_t down,
                         std::int64_t right, std::uint32_t pixel);
    const Figure& FigureOf(const EllipseShape& shape);

    std::deque<Figure> kept;
};

} // namespace quelmont
