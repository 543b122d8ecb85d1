#include "qtsurface/polygon_scan.h"

namespace quelmont {

PolygonScan::PolygonScan(std::span<const SurfacePoint> points, std::span<const std::int32_t> counts,
                         const ScanRows& rows)
    : scanned(rows) {
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
            if (upper.y < lower.y && lower.y > rows.first && upper.y < rows.At(rows.count)) {
                const double slope =
                    (static_cast<double>(lower.x) - upper.x) / (static_cast<double>(lower.y) - upper.y);
                edges.push_back({upper, lower, slope, direction});
            }
        }
    }
    std::sort(edges.begin(), edges.end(), [](const Edge& a, const Edge& b) { return a.upper.y < b.upper.y; });
}

std::int64_t PolygonScan::FirstRow() const {
    if (edges.empty()) {
        return scanned.count;
    }
    const std::int64_t above = edges.front().upper.y - scanned.first;
    return above <= 0 ? 0 : (above + scanned.step - 1) / scanned.step;
}

std::size_t PolygonScan::FindCrossings(std::int64_t y, std::size_t next) {
    std::erase_if(crossings, [&](const Crossing& crossing) { return edges[crossing.edge].lower.y <= y; });
    const std::size_t before = crossings.size();
    for (; next < edges.size() && edges[next].upper.y <= y; ++next) {
        if (edges[next].lower.y > y) {
            crossings.push_back({0.0, edges[next].direction, next});
        }
    }
    for (Crossing& crossing : crossings) {
        const Edge& edge = edges[crossing.edge];
        crossing.x = edge.upper.x + static_cast<double>(y - edge.upper.y) * edge.slope;
    }
    SortCrossings(crossings.size() - before);
    return next;
}

void PolygonScan::SortCrossings(std::size_t added) {
    constexpr std::size_t few = 8;
    const auto isLeft = [](const Crossing& a, const Crossing& b) { return a.x < b.x; };
    if (added > few) {
        std::sort(crossings.begin(), crossings.end(), isLeft);
        return;
    }
    // From one row to the next hardly any of them change places.
    for (std::size_t i = 1; i < crossings.size(); ++i) {
        const Crossing crossing = crossings[i];
        std::size_t place = i;
        for (; place > 0 && isLeft(crossing, crossings[place - 1]); --place) {
            crossings[place] = crossings[place - 1];
        }
        crossings[place] = crossing;
    }
}

} // namespace quelmont
