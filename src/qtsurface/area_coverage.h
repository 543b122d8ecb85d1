#pragma once

#include "qtsurface/pixel_grid.h"

#include <cstdint>
#include <span>
#include <vector>

namespace quelmont {

/// Areas with smooth edges on a picture: a pixel gets as much of an area's colour as the area covers of it.
///
/// Areas that follow each other and share an edge show nothing of what lies below them there: a pixel on the
/// edge is made of both colours, by their shares, though they come one after the other. That holds until
/// something else is painted.
class AreaCoverage {
public:
    /// Fills several polygons together, vertices in parts of a pixel as FineLines counts them; counts has the
    /// number of each. std::bad_alloc.
    void Fill(const PixelGrid& grid, std::span<const SurfacePoint> points,
              std::span<const std::int32_t> counts, int fillMode, std::uint32_t pixel);

    /// Something else is painted.
    void Forget() {
        if (fresh) {
            BeginAnew();
        }
    }

private:
    /// A pixel that areas have covered in part.
    struct EdgePixel {
        std::uint32_t below = 0;      ///< what it was before
        std::uint16_t covered = 0;    ///< of it, in parts of WholePixel
        std::uint16_t generation = 0; ///< another one: forgotten
    };

    void BeginAnew();
    void Add(double x, std::int32_t sign);
    void PaintRow(const PixelGrid& grid, std::int64_t row, std::uint32_t pixel);
    void PaintEdge(std::uint32_t& painted, EdgePixel& edge, std::int32_t covered, std::uint32_t pixel) const;

    std::int32_t width = 0, height = 0;
    std::vector<EdgePixel> edges;
    std::uint16_t generation = 1;
    bool fresh = false;                ///< some of edges are of this generation
    std::vector<std::int32_t> steps;   ///< of a row: what is covered more from a column on than before it
    std::int32_t first = 0, last = -1; ///< columns with steps
};

} // namespace quelmont
