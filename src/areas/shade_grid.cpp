#include "areas/shade_grid.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace quelmont {

namespace {

/// Of logarithms of scales: beside a horizon they have no bound.
constexpr double LargestLogarithm = 30.0;

} // namespace

ShadeGrid::ShadeGrid(const ShadePatch& patch_, DistortionKind kind)
    : patch(patch_), logarithms(kind == DistortionKind::Area) {
    least = std::numeric_limits<double>::infinity();
    most = -least;
    for (int row = 0; row <= patch.rows; ++row) {
        for (int column = 0; column <= patch.columns; ++column) {
            const auto distortion = patch.DistortionOf(static_cast<double>(column) / patch.columns,
                                                       static_cast<double>(row) / patch.rows);
            if (!distortion) {
                values.push_back(std::numeric_limits<double>::quiet_NaN());
                continue;
            }
            const double value = logarithms ? distortion->area : distortion->angle;
            least = std::min(least, value);
            most = std::max(most, value);
            values.push_back(logarithms ? std::clamp(std::log(value), -LargestLogarithm, LargestLogarithm)
                                        : value);
        }
    }
}

/// Follows the lines on which one threshold is crossed. Cells reach one beyond the nodes on all sides, where
/// nothing is inside; lines run along the edge of the patch there.
class ShadeGrid::Tracer {
public:
    Tracer(const ShadeGrid& grid_, std::optional<double> threshold_)
        : grid(grid_), patch(grid_.patch), threshold(threshold_),
          visited(static_cast<std::size_t>(patch.columns + 2) * static_cast<std::size_t>(patch.rows + 2) *
                  4U) {}

    void Trace(PlaneRings& rings) {
        for (int row = -1; row <= patch.rows; ++row) {
            for (int column = -1; column <= patch.columns; ++column) {
                for (std::size_t edge = 0; edge < 4; ++edge) {
                    const Crossing crossing{column, row, edge};
                    if (Leaves(crossing) && !visited[NumberOf(crossing)]) {
                        Follow(crossing, rings);
                    }
                }
            }
        }
    }

private:
    struct Node {
        int column, row;
    };
    /// An edge of a cell, from its corner of that number to the next one, counter-clockwise from the lower
    /// left.
    struct Crossing {
        int column, row;
        std::size_t edge;
    };

    static Node CornerOf(const Crossing& crossing, std::size_t corner) {
        constexpr std::array<std::pair<int, int>, 4> corners = {{{0, 0}, {1, 0}, {1, 1}, {0, 1}}};
        const auto [right, up] = corners[corner % 4];
        return {crossing.column + right, crossing.row + up};
    }
    bool IsInside(Node node) const {
        return grid.Holds(node.column, node.row) &&
               (!threshold || grid.ValueAt(node.column, node.row) >= *threshold);
    }
    bool Leaves(const Crossing& at) const {
        return IsInside(CornerOf(at, at.edge)) && !IsInside(CornerOf(at, at.edge + 1));
    }
    bool Enters(const Crossing& at) const {
        return !IsInside(CornerOf(at, at.edge)) && IsInside(CornerOf(at, at.edge + 1));
    }
    std::size_t NumberOf(const Crossing& at) const {
        return (static_cast<std::size_t>(at.row + 1) * static_cast<std::size_t>(patch.columns + 2) +
                static_cast<std::size_t>(at.column + 1)) *
                   4U +
               at.edge;
    }

    /// Where the threshold lies on an edge that leaves the inside.
    std::optional<PlanePoint> PointOf(const Crossing& at) const {
        const Node in = CornerOf(at, at.edge);
        const Node out = CornerOf(at, at.edge + 1);
        double share = 0.0;
        if (threshold && grid.Holds(out.column, out.row)) {
            const double inner = grid.ValueAt(in.column, in.row);
            const double outer = grid.ValueAt(out.column, out.row);
            share = std::isfinite(outer) ? (inner - *threshold) / (inner - outer) : 0.0;
        }
        return patch.PointAt((in.column + share * (out.column - in.column)) / patch.columns,
                             (in.row + share * (out.row - in.row)) / patch.rows);
    }

    /// The cell behind the edge at which the line comes in again. In a cell that is entered twice what is
    /// inside hangs together.
    Crossing Next(const Crossing& at) const {
        constexpr std::array<std::pair<int, int>, 4> neighbours = {{{0, -1}, {1, 0}, {0, 1}, {-1, 0}}};
        Crossing next = at;
        do {
            next.edge = (next.edge + 1) % 4;
        } while (!Enters(next));
        const auto [right, up] = neighbours[next.edge];
        return {at.column + right, at.row + up, (next.edge + 2) % 4};
    }

    void Follow(const Crossing& begin, PlaneRings& rings) {
        PlaneRing ring;
        Crossing at = begin;
        while (!visited[NumberOf(at)]) {
            visited[NumberOf(at)] = true;
            if (const std::optional<PlanePoint> point = PointOf(at)) {
                ring.push_back(*point);
            }
            at = Next(at);
        }
        if (ring.size() > 2) {
            rings.push_back(std::move(ring));
        }
    }

    const ShadeGrid& grid;
    const ShadePatch& patch;
    std::optional<double> threshold; ///< nothing: all of the patch is inside
    std::vector<bool> visited;       ///< by NumberOf
};

void ShadeGrid::CutFrom(double threshold, PlaneRings& rings) const {
    Tracer(*this, logarithms ? std::log(threshold) : threshold).Trace(rings);
}

void ShadeGrid::CutWhole(PlaneRings& rings) const { Tracer(*this, std::nullopt).Trace(rings); }

} // namespace quelmont
