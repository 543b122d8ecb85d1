#pragma once

#include "platform/draw_surface.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>
#include <utility>
#include <vector>

/// The inside of polygons, row by row.

namespace quelmont {

/// The rows that are looked at: y = first, first + step and so on, in the units of the vertices.
struct ScanRows {
    std::int64_t first = 0;
    std::int64_t step = 1;
    std::int64_t count = 0;

    std::int64_t At(std::int64_t row) const { return first + row * step; }
};

/// Finds where rows run inside of polygons. Of the edges the upper ones are inside.
class PolygonScan {
public:
    /// The points of one polygon behind those of another; counts has the number of each.
    PolygonScan(std::span<const SurfacePoint> points, std::span<const std::int32_t> counts,
                const ScanRows& rows);

    /// Calls span(row, from, to) for each stretch of a row that is inside by a fill mode, FillAlternate or
    /// FillWinding: row is its number from 0, from and to are columns in the units of the vertices. The rows
    /// come from above to below, the stretches of one from left to right.
    template <typename Span>
    void EachSpan(int fillMode, Span&& span) {
        std::size_t next = 0;
        for (std::int64_t row = FirstRow();
             row < scanned.count && (next < edges.size() || !crossings.empty()); ++row) {
            next = FindCrossings(scanned.At(row), next);
            int winding = 0;
            for (std::size_t i = 0; i + 1 < crossings.size(); ++i) {
                winding += fillMode == FillWinding ? crossings[i].direction : 1;
                const bool inside = fillMode == FillWinding ? winding != 0 : winding % 2 != 0;
                if (inside) {
                    span(row, crossings[i].x, crossings[i + 1].x);
                }
            }
        }
    }

private:
    /// An edge of a polygon, from its upper end.
    struct Edge {
        SurfacePoint upper, lower;
        double slope;  ///< columns per row
        int direction; ///< 1 downward, -1 upward
    };
    /// Where an edge cuts a row.
    struct Crossing {
        double x;
        int direction;
        std::size_t edge; ///< its number
    };

    std::int64_t FirstRow() const;
    /// Those of the row at y; gives the first edge that begins below it.
    std::size_t FindCrossings(std::int64_t y, std::size_t next);
    /// Orders them from left to right.
    void SortCrossings(std::size_t added);

    ScanRows scanned;
    std::vector<Edge> edges;         ///< that go through the rows, from above to below
    std::vector<Crossing> crossings; ///< of the row, from left to right
};

} // namespace quelmont
