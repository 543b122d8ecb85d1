#include "qtsurface/pixel_grid.h"

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
    if (++generation == 0) { // after four thousand million times
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

namespace {

/// An edge of a polygon, from its upper end.
struct PolygonEdge {
    SurfacePoint upper, lower;
    double slope;  ///< columns per row
    int direction; ///< 1 downward, -1 upward
};

/// Those that go through rows from 0 to before end, from above to below.
std::vector<PolygonEdge> EdgesInRows(std::span<const SurfacePoint> points,
                                     std::span<const std::int32_t> counts, std::int32_t end) {
    std::vector<PolygonEdge> edges;
    for (const std::int32_t count : counts) {
        const auto outline = points.first(static_cast<std::size_t>(count));
        points = points.subspan(outline.size());
        for (std::size_t i = 0; i < outline.size(); ++i) {
            SurfacePoint upper = outline[i];
            SurfacePoint lower = outline[i + 1 == outline.size() ? 0 : i + 1];
            const int direction = upper.y < lower.y ? 1 : -1;
            if (direction < 0) {
                std::swap(upper, lower);
            }
            if (upper.y < lower.y && lower.y > 0 && upper.y < end) {
                const double slope =
                    (static_cast<double>(lower.x) - upper.x) / (static_cast<double>(lower.y) - upper.y);
                edges.push_back({upper, lower, slope, direction});
            }
        }
    }
    std::sort(edges.begin(), edges.end(),
              [](const PolygonEdge& a, const PolygonEdge& b) { return a.upper.y < b.upper.y; });
    return edges;
}

/// Where an edge cuts a row.
struct RowCrossing {
    double x;
    int direction;
};

void FindCrossings(const std::vector<PolygonEdge>& edges, const std::vector<std::size_t>& active,
                   std::int64_t row, std::vector<RowCrossing>& crossings) {
    crossings.clear();
    for (const std::size_t index : active) {
        const PolygonEdge& edge = edges[index];
        crossings.push_back(
            {edge.upper.x + static_cast<double>(row - edge.upper.y) * edge.slope, edge.direction});
    }
    std::sort(crossings.begin(), crossings.end(),
              [](const RowCrossing& a, const RowCrossing& b) { return a.x < b.x; });
}

} // namespace

void FillPolygons(const PixelGrid& grid, std::span<const SurfacePoint> points,
                  std::span<const std::int32_t> counts, int fillMode, std::uint32_t pixel) {
    const std::vector<PolygonEdge> edges = EdgesInRows(points, counts, grid.height);
    std::vector<std::size_t> active; ///< edges that cut the row
    std::vector<RowCrossing> crossings;
    std::size_t next = 0;
    for (std::int32_t row = edges.empty() ? grid.height : std::max(edges.front().upper.y, 0);
         row < grid.height && (next < edges.size() || !active.empty()); ++row) {
        std::erase_if(active, [&](std::size_t index) { return edges[index].lower.y <= row; });
        for (; next < edges.size() && edges[next].upper.y <= row; ++next) {
            if (edges[next].lower.y > row) {
                active.push_back(next);
            }
        }
        FindCrossings(edges, active, row, crossings);
        int winding = 0;
        for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
            winding += fillMode == FillWinding ? crossings[i].direction : 1;
            const bool inside = fillMode == FillWinding ? winding != 0 : winding % 2 != 0;
            if (inside) {
                FillSpan(grid, row, static_cast<std::int64_t>(std::ceil(crossings[i].x)),
                         static_cast<std::int64_t>(std::ceil(crossings[i + 1].x)) - 1, pixel);
            }
        }
    }
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
