#include "qtsurface/area_coverage.h"

#include "platform/fine_lines.h"
#include "qtsurface/polygon_scan.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>
#include <utility>

namespace quelmont {

namespace {

/// Rows within a pixel.
constexpr std::int32_t RowsPerPixel = 16;
constexpr std::int32_t RowStep = FinePerPixel / RowsPerPixel;
constexpr std::int32_t WholePixel = RowsPerPixel * FinePerPixel;
/// By which the parts of neighbours, each rounded, may exceed a whole pixel.
constexpr std::int32_t Slack = WholePixel / 32;

/// What a colour's share makes of one of the three parts of a pixel.
std::uint32_t Mixed(std::uint32_t painted, std::uint32_t below, std::uint32_t pixel, std::int32_t covered,
                    unsigned shift) {
    const auto part = [shift](std::uint32_t color) {
        return static_cast<std::int32_t>((color >> shift) & 0xFFU);
    };
    const std::int32_t change = (part(pixel) - part(below)) * covered;
    const std::int32_t rounded = (change + (change < 0 ? -WholePixel / 2 : WholePixel / 2)) / WholePixel;
    return static_cast<std::uint32_t>(std::clamp(part(painted) + rounded, 0, 255)) << shift;
}

} // namespace

void AreaCoverage::BeginAnew() {
    fresh = false;
    if (generation == std::numeric_limits<std::uint16_t>::max()) {
        std::fill(edges.begin(), edges.end(), EdgePixel{});
        generation = 0;
    }
    ++generation;
}

void AreaCoverage::Add(double x, std::int32_t sign) {
    // Columns count from half a pixel before the first centre.
    const double end = static_cast<double>(width) * FinePerPixel;
    const auto place = static_cast<std::int32_t>(std::lrint(std::clamp(x + FinePerPixel / 2.0, 0.0, end)));
    const std::int32_t column = place / FinePerPixel;
    const std::int32_t inside = place % FinePerPixel;
    steps[static_cast<std::size_t>(column)] += sign * (FinePerPixel - inside);
    steps[static_cast<std::size_t>(column) + 1] += sign * inside;
    first = std::min(first, column);
    last = std::max(last, column + 1);
}

void AreaCoverage::PaintEdge(std::uint32_t& painted, EdgePixel& edge, std::int32_t covered,
                             std::uint32_t pixel) const {
    const bool goesOn = edge.generation == generation && edge.covered + covered <= WholePixel + Slack;
    if (!goesOn) {
        edge = {painted, 0, generation};
    }
    edge.covered = static_cast<std::uint16_t>(std::min(edge.covered + covered, WholePixel));
    painted = 0xFF000000U | Mixed(painted, edge.below, pixel, covered, 0) |
              Mixed(painted, edge.below, pixel, covered, 8) | Mixed(painted, edge.below, pixel, covered, 16);
}

void AreaCoverage::PaintRow(const PixelGrid& grid, std::int64_t row, std::uint32_t pixel) {
    std::uint32_t* const line = grid.pixels + row * grid.width;
    EdgePixel* const edge = edges.data() + row * grid.width;
    std::int32_t sum = 0;
    std::int32_t wholeFrom = -1; ///< of a stretch that is covered whole
    for (std::int32_t column = first; column <= last; ++column) {
        sum += std::exchange(steps[static_cast<std::size_t>(column)], 0);
        const bool whole = sum >= WholePixel && column < width;
        if (whole) {
            wholeFrom = wholeFrom < 0 ? column : wholeFrom;
            edge[column].generation = 0;
            continue;
        }
        if (wholeFrom >= 0) {
            FillSpan(grid, row, wholeFrom, column - 1, pixel);
            wholeFrom = -1;
        }
        if (sum > 0 && column < width) {
            PaintEdge(line[column], edge[column], sum, pixel);
        }
    }
    first = width;
    last = -1;
}

void AreaCoverage::Fill(const PixelGrid& grid, std::span<const SurfacePoint> points,
                        std::span<const std::int32_t> counts, int fillMode, std::uint32_t pixel) {
    if (grid.width != width || grid.height != height || edges.empty()) {
        width = grid.width;
        height = grid.height;
        edges.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), EdgePixel{});
        generation = 1;
        // One column beyond the picture, and what a place in it adds to the next.
        steps.assign(static_cast<std::size_t>(width) + 2, 0);
        first = width;
        last = -1;
    }
    grid.Take(pixel);
    fresh = true;
    std::int64_t row = -1; ///< whose steps are collected
    PolygonScan scan(points, counts,
                     {-FinePerPixel / 2 + RowStep / 2, RowStep, std::int64_t{height} * RowsPerPixel});
    scan.EachSpan(fillMode, [&](std::int64_t part, double from, double to) {
        if (part / RowsPerPixel != row && row >= 0) {
            PaintRow(grid, row, pixel);
        }
        row = part / RowsPerPixel;
        Add(from, 1);
        Add(to, -1);
    });
    if (row >= 0) {
        PaintRow(grid, row, pixel);
    }
}

} // namespace quelmont
