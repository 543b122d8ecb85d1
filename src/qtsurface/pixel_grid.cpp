#include "qtsurface/pixel_grid.h"

#include "qtsurface/polygon_scan.h"

#include <algorithm>
#include <cmath>
#include <cstddef>

namespace quelmont {

void FillSpan(const PixelGrid& grid, std::int64_t row, std::int64_t first, std::int64_t last,
              std::uint32_t pixel) {
    first = std::max<std::int64_t>(first, 0);
    last = std::min<std::int64_t>(last, grid.width - 1);
    if (row < 0 || row >= grid.height || first > last) {
        return;
    }
    std::uint32_t* const line = grid.pixels + row * grid.width;
    if (grid.painted == nullptr) {
        std::fill(line + first, line + last + 1, pixel);
    } else {
        grid.painted->Take(pixel);
        grid.painted->Fill(line, static_cast<std::size_t>(row), static_cast<std::int32_t>(first),
                           static_cast<std::int32_t>(last));
    }
}

void PaintedSpans::Forget() {
    wholeRows = 0;
    if (++generation == 0) { // after 2^32 calls
        std::fill(rows.begin(), rows.end(), Row{});
        generation = 1;
    }
}

void PaintedSpans::Fill(std::uint32_t* line, std::size_t row, std::int32_t first, std::int32_t last) {
    /// Shorter ones are painted as soon as they are looked up.
    constexpr std::int32_t shortest = 8;
    Row& known = rows[row];
    if (last - first + 1 < shortest) {
        std::fill(line + first, line + last + 1, color);
        return;
    }
    if (known.generation != generation || first > known.last + 1 || last < known.first - 1) {
        std::fill(line + first, line + last + 1, color);
        // A row that is whole touches every span. The longer span is kept: it grows to the whole row though
        // the outlines of wide symbols are two spans in each.
        if (known.generation == generation && known.last - known.first >= last - first) {
            return;
        }
        known = {first, last, generation};
    } else {
        if (first < known.first) {
            std::fill(line + first, line + known.first, color);
        }
        if (last > known.last) {
            std::fill(line + known.last + 1, line + last + 1, color);
        }
        if (known.first == 0 && known.last == width - 1) {
            return;
        }
        known.first = std::min(first, known.first);
        known.last = std::max(last, known.last);
    }
    wholeRows += known.first == 0 && known.last == width - 1 ? 1 : 0;
}

void FillPolygons(const PixelGrid& grid, std::span<const SurfacePoint> points,
                  std::span<const std::int32_t> counts, int fillMode, std::uint32_t pixel) {
    PolygonScan(points, counts, {0, 1, grid.height})
        .EachSpan(fillMode, [&](std::int64_t row, double from, double to) {
            FillSpan(grid, row, static_cast<std::int64_t>(std::ceil(from)),
                     static_cast<std::int64_t>(std::ceil(to)) - 1, pixel);
        });
}

void FillPolygon(const PixelGrid& grid, std::span<const SurfacePoint> points, int fillMode,
                 std::uint32_t pixel) {
    const auto count = static_cast<std::int32_t>(points.size());
    FillPolygons(grid, points, {&count, 1}, fillMode, pixel);
}

void FillEllipse(const PixelGrid& grid, const EllipseShape& ellipse, std::uint32_t pixel) {
    const auto halfWidth = [](double semiX, double semiY, double distance) {
        const double share = distance / semiY;
        return semiX * std::sqrt(std::max(0.0, 1.0 - share * share));
    };
    const auto firstRow = static_cast<std::int64_t>(std::ceil(ellipse.centreY - ellipse.semiY));
    const auto lastRow = static_cast<std::int64_t>(std::floor(ellipse.centreY + ellipse.semiY));
    const std::int64_t endRow = std::min<std::int64_t>(lastRow + 1, grid.height);
    for (std::int64_t row = std::max<std::int64_t>(firstRow, 0); row < endRow; ++row) {
        const double distance = static_cast<double>(row) - ellipse.centreY;
        const double outer = halfWidth(ellipse.semiX, ellipse.semiY, distance);
        const auto first = static_cast<std::int64_t>(std::ceil(ellipse.centreX - outer));
        const auto last = static_cast<std::int64_t>(std::floor(ellipse.centreX + outer));
        if (ellipse.holeX > 0.0 && ellipse.holeY > std::fabs(distance)) {
            const double hole = halfWidth(ellipse.holeX, ellipse.holeY, distance);
            const auto holeFirst = static_cast<std::int64_t>(std::floor(ellipse.centreX - hole)) + 1;
            const auto holeLast = static_cast<std::int64_t>(std::ceil(ellipse.centreX + hole)) - 1;
            if (holeFirst <= holeLast) {
                FillSpan(grid, row, first, holeFirst - 1, pixel);
                FillSpan(grid, row, holeLast + 1, last, pixel);
                continue;
            }
        }
        FillSpan(grid, row, first, last, pixel);
    }
}

} // namespace quelmont
